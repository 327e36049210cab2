#include "platform/linux/dispatch/LinuxTimer.h"

#include <utility>

#include "platform/linux/dispatch/TimerSchedule.h"

namespace talmo {

LinuxTimer::LinuxTimer(Duration interval, Duration tolerance, std::function<void()> block,
                       Queue& mainQueue, LinuxDelayedWork& delayed)
    : interval_(interval),
      tolerance_(tolerance),
      mainQueue_(mainQueue),
      delayed_(delayed),
      block_(std::make_shared<const std::function<void()>>(std::move(block))),
      due_(LinuxDelayedWork::after(interval)) {}

void LinuxTimer::schedule() {
  delayed_.schedule(coalescedInstant(due_, tolerance_), [self = shared_from_this()] {
    self->mainQueue_.async([self] { self->fire(); });
  });
}

void LinuxTimer::fire() {
  const std::shared_ptr<const std::function<void()>> block = block_;
  if (!block) return;
  (*block)();
  if (!block_) return;
  due_ = nextDue(due_, interval_, std::chrono::steady_clock::now());
  schedule();
}

}  // namespace talmo
