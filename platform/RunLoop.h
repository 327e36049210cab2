#pragma once

#include <functional>
#include <memory>

#include "platform/RunLoopSource.h"

namespace talmo {

/// The loop that serves one thread's sources. `addSource`, `run` and `stop` belong to that thread;
/// `performBlock` and `wakeUp` may be called on any.
class RunLoop {
 public:
  virtual ~RunLoop() = default;

  /// Adds a source in the common modes; the run loop shares its ownership until `run` has returned.
  virtual void addSource(std::shared_ptr<RunLoopSource> source) = 0;

  /// Serves the sources and blocks; returns only after `stop`.
  virtual void run() = 0;

  /// Makes `run` return when the source or block that calls this has returned.
  virtual void stop() = 0;

  /// Has the run loop call `block` once, in the common modes, when it next wakes.
  virtual void performBlock(std::function<void()> block) = 0;

  /// Wakes the run loop if it waits.
  virtual void wakeUp() = 0;
};

}  // namespace talmo
