#pragma once

namespace talmo {

/// What the update framework's windows ask of the program and tell it. Called on the main thread.
class StandardUserDriverDelegate {
 public:
  virtual ~StandardUserDriverDelegate() = default;

  /// Whether the program has gentle ways of its own to say that a scheduled check found an update.
  virtual bool supportsGentleScheduledUpdateReminders() const = 0;

  /// An update is about to be shown.
  virtual void standardUserDriverWillHandleShowingUpdate() = 0;
};

}  // namespace talmo
