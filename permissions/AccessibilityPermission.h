#pragma once

#include <functional>
#include <memory>

#include "platform/Notifications.h"
#include "platform/Timer.h"

namespace talmo {

/// The trust that the media key tap needs. Reads it, asks the person for it once, watches it for as
/// long as the program runs, and offers the repairs for a record of it that has gone stale.
///
/// An object belongs to the main thread, its callbacks included. No failure is reported.
class AccessibilityPermission : public std::enable_shared_from_this<AccessibilityPermission> {
 public:
  /// Reads the trust of the moment.
  static std::shared_ptr<AccessibilityPermission> make();
  ~AccessibilityPermission();
  AccessibilityPermission(const AccessibilityPermission&) = delete;
  AccessibilityPermission& operator=(const AccessibilityPermission&) = delete;

  /// Called with the new trust when it has changed.
  std::function<void(bool isTrusted)> onChange;

  bool isTrusted() const { return isTrusted_; }

  /// Whether trust changed somewhere in the system while this process still read none, which hints
  /// at a stale record. Until trust is gained.
  bool sawChangeWhileUntrusted() const { return sawChangeWhileUntrusted_; }

  /// Called when `sawChangeWhileUntrusted` becomes true.
  std::function<void()> onStaleTrustSuspected;

  /// Reads trust anew and has the system ask the person for it, unless this machine has granted it
  /// before: a second dialog would not help against a stale record, which the panel tells of.
  void promptIfNeeded();

  /// Polls from now on and listens for the system's notice. A second call only starts the poll
  /// anew.
  void startMonitoring();

  /// Opens the Accessibility pane of the privacy settings.
  static void openSystemSettings();

  /// Starts another instance of the program, which reads the record of trust afresh, and ends this
  /// one, also when the other could not be started.
  static void relaunch();

  /// Takes this program's grant out of the system's record, on a background queue, and then opens
  /// the settings.
  static void resetAndReopenSettings();

 private:
  AccessibilityPermission();

  void setTrusted(bool trusted);
  void scheduleTimer();
  void check();
  void axPermissionsMayHaveChanged();
  void checkForStaleTrust();

  bool isTrusted_;
  std::shared_ptr<Timer> timer_;
  bool isObservingAXChanges_ = false;
  Notifications::Token observer_ = 0;
  bool sawChangeWhileUntrusted_ = false;
};

}  // namespace talmo
