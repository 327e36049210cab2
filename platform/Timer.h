#pragma once

namespace talmo {

/// A repeating timer of the main run loop, made by `Dispatch::scheduledTimer`. Letting go of it
/// does not end it: the run loop keeps it until it is invalidated.
class Timer {
 public:
  virtual ~Timer() = default;

  /// Ends the timer; its block does not run again and is released. Main thread; may be repeated.
  virtual void invalidate() = 0;
};

}  // namespace talmo
