#include "platform/linux/dispatch/LinuxSemaphore.h"

#include "platform/linux/dispatch/LinuxDelayedWork.h"
#include "support/MutexLock.h"

namespace talmo {

void LinuxSemaphore::signal() {
  // Notified under the lock: the waiter may let go of the semaphore as soon as it has it.
  const MutexLock lock(mutex_);
  ++value_;
  signalled_.notify_one();
}

bool LinuxSemaphore::wait(std::optional<Duration> timeout) {
  const std::optional<Uptime> deadline =
      timeout ? std::optional(LinuxDelayedWork::after(*timeout)) : std::nullopt;
  MutexLock lock(mutex_);
  while (value_ <= 0) {
    if (!deadline) {
      signalled_.wait(lock);
    } else if (std::chrono::steady_clock::now() >= *deadline) {
      return false;
    } else {
      signalled_.wait_until(lock, *deadline);
    }
  }
  --value_;
  return true;
}

}  // namespace talmo
