#pragma once

#include <string>
#include <string_view>

#include "web/BrowserDialect.h"
#include "web/WebPlayerTarget.h"
#include "web/WebTabMatch.h"

namespace talmo {

/// The AppleScript texts that drive one tab. They look for the tab by its URL and, as it may have
/// gone on to another page since, then for the first tab that may be the web player's; a script
/// returns "ok", or "notab" when there is neither.
class WebRouteScripts {
 public:
  WebRouteScripts() = delete;

  /// Runs JavaScript in the tab.
  static std::string javaScriptRoute(BrowserDialect dialect, const std::string& bundleID,
                                     const WebTabMatch& match, const WebPlayerTarget& target,
                                     std::string_view js);

  /// Brings the browser and the tab to the front.
  static std::string focusRoute(BrowserDialect dialect, const std::string& bundleID,
                                const WebTabMatch& match, const WebPlayerTarget& target);

  /// The condition that the URL in the variable `u` may be this web player's.
  static std::string filterCondition(const WebPlayerTarget& target);

  /// The text for use between the quotes of an AppleScript string.
  static std::string escapeForAppleScript(std::string_view text);
};

}  // namespace talmo
