#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "app/HeroTarget.h"
#include "keys/MediaKeyTap.h"
#include "keys/MediaKeyTapDelegate.h"
#include "onboarding/OnboardingWindowController.h"
#include "panel/PanelController.h"
#include "panel/StatusItemController.h"
#include "permissions/AccessibilityPermission.h"
#include "platform/Queue.h"
#include "players/MediaKey.h"
#include "players/MusicAppController.h"
#include "players/TargetApp.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The spine of the program: owns the media key tap, decides for every media key whether it is
/// consumed and where it goes, and keeps the routing choice in step with the preferences.
///
/// Made and destroyed on the main thread. The tap thread asks `mediaKeyTap`; every command for a
/// player runs on the command queue, in the order of the key presses.
class AppCoordinator : public MediaKeyTapDelegate,
                       public std::enable_shared_from_this<AppCoordinator> {
 public:
  static std::shared_ptr<AppCoordinator> make();

  /// Connects everything, sets the routing state, and from then on has the tap run while the
  /// program is trusted; the first time ever it shows the first run. Once, main thread.
  void start();

  /// Opens the panel, unless it is open. Main thread.
  void openPanel();

  /// Re-reads the selection and sets the routing state: auto, fixed or off. Main thread.
  void updateActiveController();

  /// The swallow rule. Tap thread; queues a command, waits for nothing.
  bool mediaKeyTap(MediaKeyTap& tap, MediaKey shouldConsume, bool isKeyDown,
                   bool isRepeat) override;

  /// Sends one key to one player, or launches the player. Command queue.
  void dispatch(MediaKey key, MusicAppController& controller);

  /// The selection: a target's id, the auto sentinel, or nothing when routing is off. Main thread.
  const std::optional<std::string>& currentTargetID() const { return currentTargetID_; }

  MediaKeyTap& tap() { return *tap_; }

  AccessibilityPermission& permission() { return *permission_; }

 private:
  /// What auto routing chose last, and when.
  struct AutoResolution {
    std::string id;
    Uptime at;
  };

  AppCoordinator();

  // The start (StartUp.cpp). Main thread.
  void connectInterface();
  void connectPermission();
  void showOnboarding();
  bool onboardingWasGranted();
  void onboardingHasFinished();
  void startTap();
  void showPermissionWarning();
  void refreshPanel();

  void route(bool isAutoRouting, const std::shared_ptr<MusicAppController>& fixed, MediaKey key);

  // Auto routing (AutoRouting.cpp). Command queue.
  std::shared_ptr<MusicAppController> autoController();
  std::shared_ptr<MusicAppController> controllerFor(const TargetApp& app);
  void launchDefaultPlayer();

  const std::shared_ptr<MediaKeyTap> tap_;
  const std::shared_ptr<AccessibilityPermission> permission_;
  const std::shared_ptr<StatusItemController> statusItemController_;
  const std::shared_ptr<PanelController> panelController_;
  std::shared_ptr<HeroTarget> heroTarget_;
  // While the first run is shown.
  std::shared_ptr<OnboardingWindowController> onboardingWindowController_;
  const std::shared_ptr<Queue> commandQueue_;
  Mutex controllerLock_;
  std::shared_ptr<MusicAppController> _activeController TALMO_GUARDED_BY(controllerLock_);
  std::optional<std::string> currentTargetID_;
  bool _isAutoRouting TALMO_GUARDED_BY(controllerLock_) = false;

  // The command queue's. One controller per target for the whole run, none ever let go of.
  std::map<std::string, std::shared_ptr<MusicAppController>> autoControllers_;
  std::optional<AutoResolution> lastAutoResolution_;
};

}  // namespace talmo
