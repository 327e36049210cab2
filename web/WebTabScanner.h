#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Time.h"
#include "web/OsascriptResult.h"
#include "web/SupportedBrowser.h"
#include "web/WebTabMatch.h"

namespace talmo {

/// Asks the running browsers which of their tabs show a web player. Keeps nothing. Any thread,
/// except where a function says otherwise.
class WebTabScanner {
 public:
  WebTabScanner() = delete;

  /// The matches of every browser that runs and may be automated, in the order of the browsers and
  /// then of their tabs. Asks all of them at the same time and waits for two seconds at the most;
  /// a browser that fails or takes longer contributes nothing. Not on the main thread.
  static std::vector<WebTabMatch> scan();

  /// The AppleScript that writes a line for each tab of a web player: its URL, a tab character, its
  /// title. It ends after 51 lines.
  static std::string scanScript(const SupportedBrowser& browser);

  /// The AppleScript condition that the URL in the variable `u` may be a web player's.
  static std::string urlFilterCondition();

  /// Runs a script and waits for its end. Nothing, and a line in the log, when it could not be
  /// started or takes longer than `timeout`; then it is asked to end. What it writes is read when
  /// it has ended, so that must fit into a pipe. Not on the main thread.
  static std::optional<OsascriptResult> runOsascript(const std::string& script, Duration timeout);

  /// The matches in what a scan script wrote; a line that is none is skipped.
  static std::vector<WebTabMatch> parse(std::string_view output, const std::string& browserBundleID,
                                        const std::string& browserName);

  /// One match for each web player, by target id: that of the media session's owner whose title is
  /// the session's, or else the one with its title, or else its owner's. Among equals the first.
  static std::map<std::string, WebTabMatch> bestPerTarget(
      const std::vector<WebTabMatch>& matches, const std::optional<std::string>& owner,
      const std::optional<std::string>& parentOwner,
      const std::optional<std::string>& sessionTitle);
};

}  // namespace talmo
