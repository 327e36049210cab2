#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>

#include "platform/linux/dispatch/LinuxThreads.h"
#include "platform/QualityOfService.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// Threads that run pieces of work of one quality of service: a new one whenever all are busy, as
/// work may block for seconds, and none that has had nothing to do for a while. Any thread may
/// call.
class LinuxWorkerPool {
 public:
  /// How long a worker waits for more work before it ends.
  static constexpr Duration idleLimit = std::chrono::seconds(10);

  /// `threads` lives longer and is waited for before this object goes.
  LinuxWorkerPool(LinuxThreads& threads, std::string name, QualityOfService quality,
                  Duration idle = idleLimit);

  /// Has a worker run `work`. Returns false, and releases it, once the pool is closing.
  bool submit(std::function<void()> work);

  /// Takes no more work and lets the workers end. What was submitted has its worker, and runs.
  void close();

 private:
  void serve();

  LinuxThreads& threads_;
  const std::string name_;
  const QualityOfService quality_;
  const Duration idle_;
  Mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<std::function<void()>> work_ TALMO_GUARDED_BY(mutex_);
  std::size_t idleWorkers_ TALMO_GUARDED_BY(mutex_) = 0;
  bool closing_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
