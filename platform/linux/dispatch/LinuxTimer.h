#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/Queue.h"
#include "platform/Timer.h"
#include "support/Time.h"

namespace talmo {

/// A repeating timer. What is scheduled on the delayed work keeps it alive, and so does a firing on
/// the main queue. It is scheduled anew where it comes due, so that this thread is not woken for
/// that by the main one; everything else happens on the main thread.
class LinuxTimer : public Timer, public std::enable_shared_from_this<LinuxTimer> {
 public:
  /// Both services live for as long as the timer is valid.
  LinuxTimer(Duration interval, Duration tolerance, std::function<void()> block, Queue& mainQueue,
             LinuxDelayedWork& delayed);

  /// Arranges the next firing. Once after the construction.
  void schedule();

  void invalidate() override {
    isValid_ = false;
    block_ = nullptr;
  }

 private:
  void comeDue();
  void fire();

  const Duration interval_;
  const Duration tolerance_;
  Queue& mainQueue_;
  LinuxDelayedWork& delayed_;
  // Shared with a firing that is under way, so that the block may end its own timer.
  std::shared_ptr<const std::function<void()>> block_;
  std::atomic<bool> isValid_ = true;
  // From coming due to the end of the firing, in which coming due again has no effect.
  std::atomic<bool> isFiring_ = false;
  // On the ideal schedule, whatever the tolerance or a late firing made of it. Belongs to whoever
  // schedules.
  Uptime due_;
};

}  // namespace talmo
