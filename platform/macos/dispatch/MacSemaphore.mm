#include "platform/macos/dispatch/MacSemaphore.h"

#include "platform/macos/dispatch/DispatchTime.h"

namespace talmo {

// Made with zero, as one that is released with less than it was made with ends the process.
MacSemaphore::MacSemaphore(int value) : semaphore_(dispatch_semaphore_create(0)) {
  for (int count = 0; count < value; ++count) signal();
}

void MacSemaphore::signal() {
  dispatch_semaphore_signal(semaphore_);
}

bool MacSemaphore::wait(std::optional<Duration> timeout) {
  const dispatch_time_t deadline = timeout ? timeAfter(*timeout) : DISPATCH_TIME_FOREVER;
  return dispatch_semaphore_wait(semaphore_, deadline) == 0;
}

}  // namespace talmo
