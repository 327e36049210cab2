// The part of the panel's controller that keeps its players, warnings and offers up to date.

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "app/Preferences.h"
#include "panel/PanelController.h"
#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"
#include "players/PlayerDetection.h"
#include "players/TargetAppRegistry.h"
#include "web/SupportedBrowsers.h"

namespace talmo {
namespace {

using Statuses = std::map<std::string, AutomationStatus>;

/// The browsers that run, in the order in which they are offered.
std::vector<BrowserPrimer> runningBrowsers(const std::optional<std::string>& playing) {
  std::vector<BrowserPrimer> browsers;
  for (const SupportedBrowser& browser : SupportedBrowsers::runningFrontmostFirst(playing)) {
    browsers.push_back(
        {.bundleID = browser.bundleID, .name = SupportedBrowsers::name(browser.bundleID)});
  }
  return browsers;
}

/// The first browser for which there is anything but consent.
std::optional<BrowserPrimer> candidate(const std::vector<BrowserPrimer>& browsers,
                                       const Statuses& statuses) {
  const auto found = std::ranges::find_if(browsers, [&statuses](const BrowserPrimer& browser) {
    const auto status = statuses.find(browser.bundleID);
    return status == statuses.end() || status->second != AutomationStatus::granted;
  });
  return found == browsers.end() ? std::nullopt : std::optional(*found);
}

AutomationWarning unheard(const TargetApp& app) {
  return {.name = app.displayName,
          .explanation =
              "Automation is off, so play/skip won't reach it. Turn Talmo on in "
              "Automation settings.",
          .title = app.displayName + " can't hear Talmo"};
}

AutomationWarning unseen(const TargetApp& app, const WebTabMatch& tab) {
  return {.name = app.displayName,
          .explanation =
              "Your keys still control it while it plays. Turn Talmo on in Automation "
              "settings to also find a paused tab.",
          .title = "Talmo can't see " + tab.browserName + "'s tabs"};
}

}  // namespace

void PanelController::refreshDetectedPlayers() {
  PlayerDetection::detect([weak = weak_from_this()](std::vector<TargetApp> players) {
    if (const std::shared_ptr<PanelController> self = weak.lock()) {
      self->viewModel_.detectedPlayers.set(std::move(players));
    }
  });
}

void PanelController::refreshAutomationWarning() {
  const std::optional<std::string>& id = viewModel_.selectedTargetID.get();
  const std::optional<TargetApp> app = id ? TargetAppRegistry::app(*id) : std::nullopt;
  std::string bundleID;
  AutomationWarning warning;
  if (app && app->isWeb()) {
    if (const std::optional<WebTabMatch> tab = WebTabDetection::cachedMatch(app->id)) {
      bundleID = tab->browserBundleID;
      warning = unseen(*app, *tab);
    }
  } else if (app && std::holds_alternative<ScriptingBridge>(app->method)) {
    bundleID = app->bundleID;
    warning = unheard(*app);
  }
  if (bundleID.empty()) {
    viewModel_.automationWarning.set(std::nullopt);
    return;
  }
  AutomationPermission::refreshStatus(
      bundleID, [weak = weak_from_this(), targetID = app->id,
                 warning = std::move(warning)](AutomationStatus status) {
        const bool isDenied = status == AutomationStatus::denied;
        if (const std::shared_ptr<PanelController> self = weak.lock()) {
          self->showAutomationWarning(targetID, isDenied ? std::optional(warning) : std::nullopt);
        }
      });
}

void PanelController::showAutomationWarning(const std::string& targetID,
                                            std::optional<AutomationWarning> warning) {
  // Another player may have been chosen since the question.
  if (viewModel_.selectedTargetID.get() != targetID) return;
  viewModel_.automationWarning.set(std::move(warning));
}

void PanelController::refreshBrowserPrimer() {
  const std::uint64_t number = ++lastPrimerRefresh_;
  // Which browsers run may have to be asked of other processes.
  platform()
      .dispatch()
      .globalQueue(QualityOfService::userInitiated)
      .async([weak = weak_from_this(), number, playing = nowPlaying_->mediaOwnerBundleID()] {
        std::vector<BrowserPrimer> browsers = runningBrowsers(playing);
        std::vector<std::string> bundleIDs;
        std::ranges::transform(browsers, std::back_inserter(bundleIDs), &BrowserPrimer::bundleID);
        AutomationPermission::refreshStatuses(
            bundleIDs, [weak, number, browsers = std::move(browsers)](const Statuses& statuses) {
              const std::shared_ptr<PanelController> self = weak.lock();
              if (!self || number != self->lastPrimerRefresh_) return;
              self->showBrowserPrimer(candidate(browsers, statuses));
            });
      });
}

void PanelController::showBrowserPrimer(std::optional<BrowserPrimer> candidate) {
  if (Preferences::browserAccessDismissed() || !viewModel_.webTabs.get().empty()) candidate.reset();
  viewModel_.browserPrimer.set(std::move(candidate));
}

void PanelController::requestBrowserAccess(const std::string& bundleID) {
  AutomationPermission::request(bundleID, [weak = weak_from_this(), bundleID](AutomationStatus) {
    const std::shared_ptr<PanelController> self = weak.lock();
    if (!self) return;
    // The system's dialog may have taken the keys and so closed the panel.
    AutomationPermission::invalidate(bundleID);
    if (self->viewModel_.isPanelOpen.get()) {
      self->webTabDetection_->start();
    } else {
      self->webTabDetection_->scanSoon();
    }
    self->refreshBrowserPrimer();
  });
}

void PanelController::dismissBrowserPrimer() {
  Preferences::setBrowserAccessDismissed(true);
  viewModel_.browserPrimer.set(std::nullopt);
}

void PanelController::webTabsDidChange(const WebTabDetection::Matches& webTabs) {
  if (webTabs == viewModel_.webTabs.get()) return;
  viewModel_.webTabs.set(webTabs);
  if (!viewModel_.isPanelOpen.get()) return;
  // A browser that is denied shows no tabs. Nothing new is known of a pinned one without a tab.
  const std::optional<std::string>& id = viewModel_.selectedTargetID.get();
  if (id && webTabs.contains(*id)) refreshAutomationWarning();
  refreshBrowserPrimer();
}

void PanelController::applicationDidActivate() {
  // Which application is in front may have to be asked of other processes.
  platform()
      .dispatch()
      .globalQueue(QualityOfService::userInitiated)
      .async([weak = weak_from_this()] {
        const std::optional<std::string> front = platform().workspace().frontmostApplication();
        if (!SupportedBrowsers::isSupported(front)) return;
        platform().dispatch().mainQueue().async([weak, bundleID = *front] {
          const std::shared_ptr<PanelController> self = weak.lock();
          if (self && self->viewModel_.isPanelOpen.get()) self->browserDidActivate(bundleID);
        });
      });
}

void PanelController::browserDidActivate(const std::string& bundleID) {
  AutomationPermission::invalidate(bundleID);
  webTabDetection_->scanSoon();
  refreshAutomationWarning();
  refreshBrowserPrimer();
}

}  // namespace talmo
