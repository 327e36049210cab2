#pragma once

#include <optional>
#include <string>
#include <vector>

#include "players/KeyStroke.h"
#include "web/WebCommand.h"
#include "web/WebTransportScript.h"

namespace talmo {

/// One web player: which pages are its own, and how it is driven in a browser tab.
struct WebPlayerTarget {
  /// Also the id of the web target, and the key of its tab matches.
  std::string id;
  std::string displayName;
  std::string iconAssetName;
  /// Lower-case hosts; a host belongs to the player when it is one of them or a subdomain of one.
  std::vector<std::string> hosts;
  /// A browser reports a tab only when its URL contains one of these.
  std::vector<std::string> urlFilters;
  /// Opened when a command arrives and no tab of the player exists.
  std::optional<std::string> launchURL;
  WebTransportScript script;
  /// Sent to the focused tab when JavaScript cannot be run.
  KeyStroke fallbackKey;
  /// Paths of the pages on which media plays; empty when every page of the player is one.
  std::vector<std::string> playerPathPrefixes;
  /// Hosts, by the rule of `hosts`, whose every page is a player page.
  std::vector<std::string> alwaysPlayerHosts;

  bool operator==(const WebPlayerTarget&) const = default;

  const std::string& js(WebCommand command) const;

  /// Whether the URL belongs to the player.
  bool matches(const std::string& url) const;

  /// Whether the URL is a page of the player on which media plays.
  bool isPlayerPage(const std::string& url) const;
};

}  // namespace talmo
