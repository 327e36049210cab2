#pragma once

#include <functional>
#include <memory>

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "platform/Queue.h"
#include "platform/Timer.h"
#include "support/Time.h"

namespace talmo {

/// A repeating timer. Its next firing, on the delayed work or on the main queue, keeps it alive;
/// everything else happens on the main thread.
class LinuxTimer : public Timer, public std::enable_shared_from_this<LinuxTimer> {
 public:
  /// Both services live for as long as the timer is valid.
  LinuxTimer(Duration interval, Duration tolerance, std::function<void()> block, Queue& mainQueue,
             LinuxDelayedWork& delayed);

  /// Arranges the next firing.
  void schedule();

  void invalidate() override { block_ = nullptr; }

 private:
  void fire();

  const Duration interval_;
  const Duration tolerance_;
  Queue& mainQueue_;
  LinuxDelayedWork& delayed_;
  // Shared with a firing that is under way, so that the block may end its own timer.
  std::shared_ptr<const std::function<void()>> block_;
  // On the ideal schedule, whatever the tolerance or a late firing made of it.
  Uptime due_;
};

}  // namespace talmo
