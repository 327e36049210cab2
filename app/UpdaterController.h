#pragma once

#include <memory>

#include "platform/StandardUpdaterController.h"
#include "platform/StandardUserDriverDelegate.h"

namespace talmo {

/// Keeps the program up to date, in a build that says where its updates are (`SUFeedURL` in the
/// bundle's information dictionary) on a system with the framework for it. Otherwise every feature
/// is unavailable. Main thread.
class UpdaterController : public StandardUserDriverDelegate {
 public:
  /// The only one; the updater starts with the first call.
  static UpdaterController& shared();

  ~UpdaterController() override = default;
  UpdaterController(const UpdaterController&) = delete;
  UpdaterController& operator=(const UpdaterController&) = delete;

  /// Whether there is an updater.
  bool isAvailable() const;

  /// False, and not to be changed, without an updater.
  bool automaticallyChecksForUpdates() const;
  void setAutomaticallyChecksForUpdates(bool automatically);

  /// Has the updater look for an update now and show what comes of it.
  void checkForUpdates();

  bool supportsGentleScheduledUpdateReminders() const override;

  /// Brings the update's window to the front, which a program in the menu bar does not get by
  /// itself.
  void standardUserDriverWillHandleShowingUpdate() override;

 private:
  struct State;

  UpdaterController();

  std::unique_ptr<StandardUpdaterController> controller_;
};

}  // namespace talmo
