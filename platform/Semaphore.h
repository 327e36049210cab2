#pragma once

#include <optional>

#include "support/Time.h"

namespace talmo {

/// A counting semaphore. Both functions may be called on any thread; `wait` on the main thread
/// stops the main queue for as long as it lasts.
class Semaphore {
 public:
  virtual ~Semaphore() = default;

  /// Adds one to the count, which lets one waiter go.
  virtual void signal() = 0;

  /// Takes one from the count, waiting for it at most `timeout`, or without a limit when there is
  /// none. Returns false when the time ran out.
  virtual bool wait(std::optional<Duration> timeout) = 0;
};

}  // namespace talmo
