#include "web/WebPlayerController.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/Platform.h"
#include "players/KeystrokeController.h"
#include "support/Logger.h"
#include "web/SupportedBrowsers.h"
#include "web/WebPlayerRegistry.h"
#include "web/WebRouteScripts.h"
#include "web/WebSessionOwnership.h"
#include "web/WebTabDetection.h"
#include "web/WebTabScanner.h"

namespace talmo {
namespace {

using Verdict = WebSessionOwnership::Verdict;

constexpr Logger log("web-tab");
constexpr Duration scriptTimeout = std::chrono::milliseconds(1300);

/// Whether the session is that browser's, or one of its helper processes'.
template <class Session>
bool isOwnedBy(const Session& session, const std::string& browserBundleID) {
  return session.bundleID == browserBundleID || session.parentBundleID == browserBundleID;
}

bool isOK(const std::optional<OsascriptResult>& result) {
  return result && result->status == 0 && result->standardOutput.find("ok") != std::string::npos;
}

std::string playerName(const std::string& targetID) {
  const WebPlayerTarget* const player = WebPlayerRegistry::targetWithID(targetID);
  return player == nullptr ? targetID : player->displayName;
}

}  // namespace

WebPlayerController::WebPlayerController(TargetApp targetApp, WebPlayerTarget target)
    : targetApp_(std::move(targetApp)), target_(std::move(target)) {}

void WebPlayerController::playPause() {
  handle(WebCommand::toggle);
}

void WebPlayerController::nextTrack() {
  handle(WebCommand::next);
}

void WebPlayerController::previousTrack() {
  handle(WebCommand::previous);
}

bool WebPlayerController::isJSBlocked(std::string_view standardError) {
  return standardError.find("Allow JavaScript from Apple Events") != std::string_view::npos ||
         standardError.find("Executing JavaScript through AppleScript is turned off") !=
             std::string_view::npos;
}

void WebPlayerController::handle(WebCommand command) {
  if (const std::optional<WebTabMatch> tab = WebTabDetection::currentMatch(target_.id)) {
    drive(command, *tab);
  } else if (!sendUnconfirmed(command)) {
    open(command);
  }
}

void WebPlayerController::drive(WebCommand command, const WebTabMatch& tab) {
  const std::vector<WebTabMatch> siblings = WebTabDetection::siblings(tab);
  if (sendToRecentOwner(command, tab, siblings)) return;
  if (sendToOwner(command, tab, siblings)) return;
  if (runJavaScript(command, tab)) return;
  if (command == WebCommand::toggle && pressKey(tab)) return;
  log.notice("all routes failed for command in %{public}s", tab.browserName);
}

bool WebPlayerController::sendToRecentOwner(WebCommand command, const WebTabMatch& tab,
                                            const std::vector<WebTabMatch>& siblings) {
  const std::optional<AdapterOwner> owner = AdapterNowPlaying::recentOwner();
  if (!owner || !isOwnedBy(*owner, tab.browserBundleID)) return false;
  if (WebSessionOwnership::judge(owner->title, tab, siblings) == Verdict::other) return false;
  AdapterNowPlaying::send(mediaRemoteID(command));
  log.notice("route=adapter(fast) browser=%{public}s target=%{public}s", tab.browserName,
             target_.displayName);
  // The next command shall find an owner as recent as this one did.
  AdapterNowPlaying::get(true, [](const std::optional<AdapterNowPlayingSnapshot>&) {});
  return true;
}

bool WebPlayerController::sendToOwner(WebCommand command, const WebTabMatch& tab,
                                      const std::vector<WebTabMatch>& siblings) {
  const std::optional<AdapterNowPlayingSnapshot> session = AdapterNowPlaying::getSync();
  if (!session || !isOwnedBy(*session, tab.browserBundleID)) return false;
  const Verdict verdict = WebSessionOwnership::judge(session->title, tab, siblings);
  log.notice(
      "session check: verdict=%{public}s playing=[%{public}s] myTab=[%{public}s] siblings=%ld",
      name(verdict), session->title, tab.title, siblings.size());
  if (verdict == Verdict::other) {
    log.notice("declining adapter route: %{public}s is playing another tab, not %{public}s",
               tab.browserName, target_.displayName);
    return false;
  }
  AdapterNowPlaying::send(mediaRemoteID(command));
  log.notice("route=adapter browser=%{public}s target=%{public}s", tab.browserName,
             target_.displayName);
  return true;
}

bool WebPlayerController::runJavaScript(WebCommand command, const WebTabMatch& tab) {
  const std::string script =
      WebRouteScripts::javaScriptRoute(SupportedBrowsers::dialect(tab.browserBundleID),
                                       tab.browserBundleID, tab, target_, target_.js(command));
  const std::optional<OsascriptResult> result = WebTabScanner::runOsascript(script, scriptTimeout);
  if (isOK(result)) {
    log.notice("route=js browser=%{public}s target=%{public}s", tab.browserName,
               target_.displayName);
    return true;
  }
  if (result && isJSBlocked(result->standardError) && !loggedJSBlocked_) {
    loggedJSBlocked_ = true;
    log.notice(
        "JavaScript from Apple Events unavailable in %{public}s; MediaRemote already covers skip, "
        "so this only matters for a tab that has never played. How to enable it differs per "
        "browser: a Develop-menu toggle in Safari/Chrome/Brave/Edge, a launch flag in Dia, and "
        "nothing at all in Arc, which needs no setting.",
        tab.browserName);
  }
  return false;
}

bool WebPlayerController::pressKey(const WebTabMatch& tab) {
  const std::string script = WebRouteScripts::focusRoute(
      SupportedBrowsers::dialect(tab.browserBundleID), tab.browserBundleID, tab, target_);
  if (!isOK(WebTabScanner::runOsascript(script, scriptTimeout))) return false;
  const std::vector<RunningApplication> running =
      platform().workspace().runningApplications(tab.browserBundleID);
  if (running.empty()) return false;
  KeystrokeController::postKeyStroke(target_.fallbackKey, running.front().processIdentifier);
  log.notice("route=keystroke browser=%{public}s target=%{public}s", tab.browserName,
             target_.displayName);
  return true;
}

bool WebPlayerController::sendUnconfirmed(WebCommand command) {
  const std::optional<AdapterNowPlayingSnapshot> session = AdapterNowPlaying::getSync();
  if (!session) return false;
  const std::string& browser =
      session->parentBundleID ? *session->parentBundleID : session->bundleID;
  if (!SupportedBrowsers::isSupported(browser)) return false;
  const std::string browserName = SupportedBrowsers::name(browser);
  const std::vector<WebTabMatch> tabs = WebTabDetection::cachedMatchesInBrowser(browser);
  const auto other = std::ranges::find_if(tabs, [&](const WebTabMatch& tab) {
    return tab.targetID != target_.id &&
           WebSessionOwnership::titleMatches(tab.title, session->title);
  });
  if (other != tabs.end()) {
    log.notice("skipping adapter route: %{public}s is playing %{public}s, not %{public}s",
               browserName, playerName(other->targetID), target_.displayName);
    return false;
  }
  // A tab that the scan cannot see, as where the browser may not be automated, has its keys too.
  AdapterNowPlaying::send(mediaRemoteID(command));
  log.notice("route=adapter(unconfirmed) browser=%{public}s target=%{public}s", browserName,
             target_.displayName);
  return true;
}

void WebPlayerController::open(WebCommand command) {
  if (command != WebCommand::toggle || !target_.launchURL) {
    log.notice("no %{public}s tab; ignoring command", target_.displayName);
    return;
  }
  log.notice("no %{public}s tab; opening %{public}s", target_.displayName, *target_.launchURL);
  platform().dispatch().mainQueue().async(
      [url = *target_.launchURL] { platform().workspace().openURL(url); });
}

}  // namespace talmo
