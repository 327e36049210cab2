// How the coordinator connects its parts, and what it does when the permission changes.

#include <string>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "app/UpdaterController.h"
#include "nowplaying/AdapterFiles.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("coordinator");

constexpr const char* endTool = "/usr/bin/pkill";

/// Ends the helpers that an earlier run has left behind, on a background queue.
void endLeftoverHelpers() {
  const std::optional<std::string> script = AdapterFiles::scriptPath();
  if (!script) return;
  platform().dispatch().globalQueue(QualityOfService::utility).async([script = *script] {
    const std::shared_ptr<ChildProcess> end =
        platform().childProcesses().make({.executable = endTool,
                                          .arguments = {"-f", script},
                                          .standardOutput = ChildOutput::nullDevice,
                                          .standardError = ChildOutput::nullDevice});
    end->launch();
    end->waitUntilExit();
  });
}

}  // namespace

void AppCoordinator::start() {
  tap_->setDelegate(weak_from_this());
  connectInterface();
  connectPermission();
  if (Preferences::hasCompletedOnboarding()) {
    permission_->promptIfNeeded();
    log.info("Accessibility permission at launch: %{bool}d", permission_->isTrusted());
    if (permission_->isTrusted()) startTap();
  } else {
    log.info("First launch; showing onboarding");
    if (permission_->isTrusted()) startTap();
    showOnboarding();
  }
  permission_->startMonitoring();
  showPermissionWarning();
  refreshPanel();
  updateActiveController();
  UpdaterController::shared();
  endLeftoverHelpers();
}

void AppCoordinator::connectInterface() {
  statusItemController_->setOnLeftClick([weak = weak_from_this()] {
    const std::shared_ptr<AppCoordinator> self = weak.lock();
    if (self) self->panelController_->toggle(self->statusItemController_->button());
  });
  panelController_->setOnSelectTarget(
      [weak = weak_from_this()](const std::optional<std::string>& id) {
        const std::shared_ptr<AppCoordinator> self = weak.lock();
        if (!self) return;
        Preferences::setSelectedTargetAppID(id.value_or(std::string(Preferences::autoSentinel)));
        self->updateActiveController();
      });
  heroTarget_ = HeroTarget::make([weak = weak_from_this()] {
    const std::shared_ptr<AppCoordinator> self = weak.lock();
    if (self) self->panelController_->nowPlaying().pollNow();
  });
  NowPlaying& nowPlaying = panelController_->nowPlaying();
  nowPlaying.setTargetProvider(
      [weak = weak_from_this(), &nowPlaying]() -> std::optional<TargetApp> {
        const std::shared_ptr<AppCoordinator> self = weak.lock();
        if (!self) return std::nullopt;
        return self->heroTarget_->target(self->currentTargetID_, nowPlaying.mediaOwnerBundleID(),
                                         nowPlaying.mediaOwnerTitle().value_or(""));
      });
}

void AppCoordinator::connectPermission() {
  permission_->onChange = [weak = weak_from_this()](bool isTrusted) {
    const std::shared_ptr<AppCoordinator> self = weak.lock();
    if (!self) return;
    log.info("Accessibility permission changed: %{bool}d", isTrusted);
    self->statusItemController_->setPermissionWarning(!isTrusted);
    if (isTrusted) {
      self->startTap();
    } else {
      self->tap_->stop();
    }
    self->refreshPanel();
  };
  permission_->onStaleTrustSuspected = [weak = weak_from_this()] {
    if (const std::shared_ptr<AppCoordinator> self = weak.lock()) self->refreshPanel();
  };
}

void AppCoordinator::showOnboarding() {
  onboardingWindowController_ = OnboardingWindowController::make(
      [weak = weak_from_this()] {
        const std::shared_ptr<AppCoordinator> self = weak.lock();
        return self && self->onboardingWasGranted();
      },
      [weak = weak_from_this()] {
        if (const std::shared_ptr<AppCoordinator> self = weak.lock()) self->onboardingHasFinished();
      });
  onboardingWindowController_->show();
}

bool AppCoordinator::onboardingWasGranted() {
  if (!tap_->isRunning()) startTap();
  refreshPanel();
  return tap_->isRunning();
}

void AppCoordinator::onboardingHasFinished() {
  Preferences::setHasCompletedOnboarding(true);
  if (permission_->isTrusted() && !tap_->isRunning()) startTap();
  showPermissionWarning();
  refreshPanel();
  onboardingWindowController_.reset();
}

void AppCoordinator::openPanel() {
  panelController_->open(statusItemController_->button());
}

void AppCoordinator::startTap() {
  if (tap_->start()) {
    log.info("Event tap running");
  } else {
    log.error("Event tap creation failed; treating as missing permission");
    statusItemController_->setPermissionWarning(true);
  }
  refreshPanel();
}

void AppCoordinator::showPermissionWarning() {
  // A tap that could not be made is missing a permission, too.
  statusItemController_->setPermissionWarning(!permission_->isTrusted() || !tap_->isRunning());
}

void AppCoordinator::refreshPanel() {
  panelController_->setPermissionState(permission_->isTrusted(), tap_->isRunning(),
                                       permission_->sawChangeWhileUntrusted());
  panelController_->setSelection(currentTargetID_);
}

}  // namespace talmo
