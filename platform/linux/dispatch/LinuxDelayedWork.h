#pragma once

#include <condition_variable>
#include <functional>
#include <map>

#include "platform/linux/dispatch/LinuxThreads.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// What is to happen later, on a thread of its own, which is started with the first piece. Any
/// thread may call.
class LinuxDelayedWork {
 public:
  /// `threads` lives longer and is waited for before this object goes.
  explicit LinuxDelayedWork(LinuxThreads& threads) : threads_(threads) {}

  /// Runs `work` at `due`, never earlier, in the order of the dues; equal ones in the order of
  /// their arrival. `work` returns at once: it hands the matter to a queue.
  void schedule(Uptime due, std::function<void()> work);

  /// Releases what has not run, takes no more and lets the thread end.
  void close();

  /// The moment `delay` from now; the last one that can be told when it is too far away.
  static Uptime after(Duration delay);

 private:
  void serve();

  LinuxThreads& threads_;
  Mutex mutex_;
  std::condition_variable_any changed_;
  std::multimap<Uptime, std::function<void()>> work_ TALMO_GUARDED_BY(mutex_);
  bool started_ TALMO_GUARDED_BY(mutex_) = false;
  bool closed_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
