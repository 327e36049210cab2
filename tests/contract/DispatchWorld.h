#pragma once

#include <functional>

#include "platform/Dispatch.h"

namespace talmo::test {

/// A `Dispatch` and the main loop that it needs, in real or in virtual time. The thread that makes
/// it is the main thread; both functions and the destructor belong to it.
class DispatchWorld {
 public:
  virtual ~DispatchWorld() = default;

  virtual Dispatch& dispatch() = 0;

  /// Serves the main queue and lets time pass until `condition` holds or `limit` is over; returns
  /// whether it held. The condition is looked at after each item of the main queue and whenever
  /// something else may have changed it; it reads atomics only.
  virtual bool runUntil(const std::function<bool()>& condition, Duration limit) = 0;
};

}  // namespace talmo::test
