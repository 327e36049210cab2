#pragma once

#include <condition_variable>
#include <optional>

#include "platform/Semaphore.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A counting semaphore whose time-out is measured on the monotonic clock.
class LinuxSemaphore : public Semaphore {
 public:
  explicit LinuxSemaphore(int value) : value_(value) {}

  void signal() override;
  bool wait(std::optional<Duration> timeout) override;

 private:
  Mutex mutex_;
  std::condition_variable_any signalled_;
  int value_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
