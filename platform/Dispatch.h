#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "platform/QualityOfService.h"
#include "platform/Queue.h"
#include "platform/Semaphore.h"
#include "platform/Timer.h"
#include "support/Time.h"

namespace talmo {

/// Queues, threads, timers and clocks: everything that takes or tells time goes through here.
///
/// Every subsystem calls it, on any thread except where a function says otherwise. Nothing here
/// fails: a system that cannot give a thread or a timer ends the process.
class Dispatch {
 public:
  virtual ~Dispatch() = default;

  /// The serial queue whose items run on the main thread, between other main-loop work.
  virtual Queue& mainQueue() = 0;

  /// The shared concurrent queue of that quality of service.
  virtual Queue& globalQueue(QualityOfService quality) = 0;

  /// A new serial queue.
  virtual std::shared_ptr<Queue> makeSerialQueue(std::string label, QualityOfService quality) = 0;

  /// So many iterations of one `concurrentPerform` can run at the same time, whatever the number of
  /// cores: they may wait for other processes.
  static constexpr std::size_t concurrentIterations = 32;

  /// Runs `iteration(0)` to `iteration(count - 1)` in parallel and returns when all have ended.
  virtual void concurrentPerform(std::size_t count,
                                 const std::function<void(std::size_t)>& iteration) = 0;

  /// A repeating timer that calls `block` on the main thread every `interval`, each time up to
  /// `tolerance` late. Periods that went by unserved are left out, not made up for. Main thread.
  virtual std::shared_ptr<Timer> scheduledTimer(Duration interval, Duration tolerance,
                                                std::function<void()> block) = 0;

  /// A semaphore that starts at `value`.
  virtual std::shared_ptr<Semaphore> makeSemaphore(int value) = 0;

  /// Starts a thread that runs `body` and then ends by itself. Whoever destroys the `Dispatch`
  /// has made every body return first; the destructor waits for it.
  virtual void startThread(std::string name, QualityOfService quality,
                           std::function<void()> body) = 0;

  /// Whether the caller runs on the main thread (the same as on the main queue).
  virtual bool isMainThread() const = 0;

  /// The wall clock.
  virtual Date now() const = 0;

  /// The clock for elapsed time.
  virtual Uptime uptime() const = 0;
};

}  // namespace talmo
