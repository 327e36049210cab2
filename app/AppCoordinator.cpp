#include "app/AppCoordinator.h"

#include <utility>

#include "app/Preferences.h"
#include "platform/Platform.h"
#include "players/ControllerFactory.h"
#include "players/TargetAppRegistry.h"
#include "support/Logger.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr Logger log("coordinator");

/// Destroys a coordinator on the main thread, whoever lets go of it last: the tap thread does when
/// the owner goes while a key is being decided, and could not wait for its own end.
void destroyOnMainThread(AppCoordinator* coordinator) {
  Dispatch& dispatch = platform().dispatch();
  std::shared_ptr<AppCoordinator> owner(coordinator);
  if (!dispatch.isMainThread()) dispatch.mainQueue().async([owner = std::move(owner)] {});
}

}  // namespace

std::shared_ptr<AppCoordinator> AppCoordinator::make() {
  return {new AppCoordinator, &destroyOnMainThread};
}

AppCoordinator::AppCoordinator()
    : tap_(MediaKeyTap::make()),
      permission_(AccessibilityPermission::make()),
      statusItemController_(StatusItemController::make()),
      panelController_(PanelController::make()),
      commandQueue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.commands",
                                                          QualityOfService::unspecified)) {}

void AppCoordinator::updateActiveController() {
  std::string selection =
      Preferences::selectedTargetAppID().value_or(std::string(Preferences::autoSentinel));
  // Routing off is no longer offered, so a stored one must not leave the keys dead.
  if (selection == Preferences::routingOffSentinel) selection = Preferences::autoSentinel;

  if (selection == Preferences::autoSentinel) {
    currentTargetID_ = selection;
    {
      const MutexLock lock(controllerLock_);
      _activeController = nullptr;
    }
    {
      const MutexLock lock(controllerLock_);
      _isAutoRouting = true;
    }
    log.info("Routing media keys automatically (follows what is playing)");
    statusItemController_->setRoutingOff(false);
    refreshPanel();
    return;
  }

  {
    const MutexLock lock(controllerLock_);
    _isAutoRouting = false;
  }
  const std::optional<TargetApp> app = TargetAppRegistry::app(selection);
  std::shared_ptr<MusicAppController> controller;
  if (app) controller = ControllerFactory::controller(*app);
  currentTargetID_ = app ? std::optional(app->id) : std::nullopt;
  {
    const MutexLock lock(controllerLock_);
    _activeController = std::move(controller);
  }
  if (app) {
    log.info("Routing media keys to %{public}s", app->displayName);
  } else {
    log.info("No target selected; media keys pass through");
  }
  statusItemController_->setRoutingOff(!currentTargetID_);
  refreshPanel();
}

bool AppCoordinator::mediaKeyTap(MediaKeyTap&, MediaKey key, bool isKeyDown, bool isRepeat) {
  bool isAutoRouting = false;
  {
    const MutexLock lock(controllerLock_);
    isAutoRouting = _isAutoRouting;
  }
  std::shared_ptr<MusicAppController> controller;
  {
    const MutexLock lock(controllerLock_);
    controller = _activeController;
  }
  if (!controller && !isAutoRouting) return false;

  if (isKeyDown && !isRepeat) {
    log.info("media key: %{public}s down", name(key));
    commandQueue_->async(
        [weak = weak_from_this(), isAutoRouting, controller = std::move(controller), key] {
          if (const std::shared_ptr<AppCoordinator> self = weak.lock()) {
            self->route(isAutoRouting, controller, key);
          }
        });
  }
  return true;
}

void AppCoordinator::route(bool isAutoRouting, const std::shared_ptr<MusicAppController>& fixed,
                           MediaKey key) {
  const std::shared_ptr<MusicAppController> controller = isAutoRouting ? autoController() : fixed;
  if (controller) {
    dispatch(key, *controller);
  } else if (isAutoRouting && key == MediaKey::playPause) {
    launchDefaultPlayer();
  }
}

void AppCoordinator::dispatch(MediaKey key, MusicAppController& controller) {
  const TargetApp& target = controller.targetApp();
  if (!target.isWeb() && !target.runningApplication()) {
    if (key != MediaKey::playPause) return;
    if (const std::optional<std::string> url = target.applicationURL()) {
      log.info("Launching %{public}s", target.displayName);
      platform().workspace().openApplication(*url);
    }
    return;
  }
  switch (key) {
    case MediaKey::playPause:
      controller.playPause();
      break;
    case MediaKey::next:
    case MediaKey::fast:
      controller.nextTrack();
      break;
    case MediaKey::previous:
    case MediaKey::rewind:
      controller.previousTrack();
      break;
  }
}

}  // namespace talmo
