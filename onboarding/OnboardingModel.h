#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "onboarding/Step.h"
#include "platform/Notifications.h"
#include "platform/Timer.h"
#include "players/TargetApp.h"
#include "support/Published.h"

namespace talmo {

/// The first run: waits until the person has switched the permission on, has the owner take the
/// keys then, and closes with the player that they will reach. Offers the repairs for a permission
/// that does not come or does not help.
///
/// Belongs to the main thread, the callbacks included; these may be empty.
class OnboardingModel : public std::enable_shared_from_this<OnboardingModel> {
 public:
  static std::shared_ptr<OnboardingModel> make();
  ~OnboardingModel();
  OnboardingModel(const OnboardingModel&) = delete;
  OnboardingModel& operator=(const OnboardingModel&) = delete;

  /// Asks the owner to close the window.
  std::function<void()> onRequestDismiss;
  /// Has the owner take the keys; answers whether it could.
  std::function<bool()> onPermissionGranted;

  Published<Step> step;
  /// The player that the keys will reach.
  Published<std::optional<TargetApp>> routedPlayer;
  Published<bool> isTrusted;
  /// The switch was not found for a while.
  Published<bool> showReopenHelper;
  /// The permission is there, and the keys could not be taken all the same.
  Published<bool> showTapFailed;
  /// The routed player's name, when the system is going to ask whether it may be automated.
  Published<std::optional<std::string>> automationPrimerPlayerName;

  /// Called once, after the window was asked to close.
  std::function<void()> onFinished;

  /// Begins to wait for the permission; with it, goes straight to the closing step.
  void begin();

  void openSystemSettings();
  void quitAndReopen();
  void fixAndRetry();
  /// Goes to the closing step without the permission.
  void skipPermission();
  /// Only the first call does anything.
  void finish();

  /// From now on `callback` is called whenever a field is about to be set.
  void observe(const std::function<void()>& callback);

 private:
  OnboardingModel() = default;

  void observeAXChanges();
  void axPermissionsMayHaveChanged();
  void pollPermission();
  void stopPolling();
  void advanceToDone();
  std::optional<std::string> computeAutomationPrimer() const;
  void refreshAutomationPrimer();

  std::shared_ptr<Timer> pollTimer_;
  std::shared_ptr<Timer> reopenHelperTimer_;
  bool hasFinished_ = false;
  bool isObservingAXChanges_ = false;
  Notifications::Token observer_ = 0;
};

}  // namespace talmo
