#pragma once

#include <memory>

#include "platform/EventTapParameters.h"
#include "platform/EventTapPort.h"
#include "platform/RunLoop.h"
#include "platform/RunLoopSource.h"

namespace talmo {

/// Event taps: a place in the stream of input events where the program sees, and may swallow,
/// events before anybody else does; and the run loops that serve them.
///
/// Called by `MediaKeyTap` only: everything on its tap thread.
class EventTap {
 public:
  virtual ~EventTap() = default;

  /// Installs a tap, enabled. Nothing when the system refuses, which is its sign that the
  /// permission is missing (or, where there is no such permission, that the keys cannot be had).
  /// A backend whose taps exclude each other waits for one that is being removed.
  virtual std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) = 0;

  /// A source (order 0) that serves `port`, which outlives it. `port` came from this object.
  virtual std::shared_ptr<RunLoopSource> makeRunLoopSource(
      const std::shared_ptr<EventTapPort>& port) = 0;

  /// The calling thread's run loop, made on first use.
  virtual std::shared_ptr<RunLoop> currentRunLoop() = 0;
};

}  // namespace talmo
