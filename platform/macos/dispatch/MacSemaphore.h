#pragma once

#include <dispatch/dispatch.h>
#include <optional>

#include "platform/Semaphore.h"

namespace talmo {

/// A semaphore of libdispatch.
class MacSemaphore : public Semaphore {
 public:
  /// Starts at `value`.
  explicit MacSemaphore(int value);

  void signal() override;
  bool wait(std::optional<Duration> timeout) override;

 private:
  const dispatch_semaphore_t semaphore_;
};

}  // namespace talmo
