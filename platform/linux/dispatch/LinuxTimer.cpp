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
  delayed_.schedule(coalescedInstant(due_, tolerance_),
                    [self = shared_from_this()] { self->comeDue(); });
}

void LinuxTimer::comeDue() {
  if (!isValid_) return;
  if (!isFiring_.exchange(true)) {
    mainQueue_.async([self = shared_from_this()] { self->fire(); });
  }
  due_ = nextDue(due_, interval_, std::chrono::steady_clock::now());
  schedule();
}

void LinuxTimer::fire() {
  const std::shared_ptr<const std::function<void()>> block = block_;
  if (block) (*block)();
  isFiring_ = false;
}

}  // namespace talmo
