#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "platform/linux/FileDescriptor.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// One thread that waits for all children and for all their pipes. It is started with the first
/// thing to watch. Every function but `stop` may be called on any thread, the watching one
/// included.
class ChildWatcher {
 public:
  ChildWatcher() = default;
  ~ChildWatcher();
  ChildWatcher(const ChildWatcher&) = delete;
  ChildWatcher& operator=(const ChildWatcher&) = delete;

  /// Calls `ready` on the thread whenever `descriptor` can be read or has been hung up, until
  /// `forget`, which comes before the descriptor is closed. `ready` may also be called without
  /// cause, and it never waits.
  void watch(int descriptor, std::function<void()> ready);
  /// A call that is under way ends by itself.
  void forget(int descriptor);

  /// Calls `work` on the thread, soon.
  void post(std::function<void()> work);

  /// Ends the thread; nothing is called any more. Not on that thread.
  void stop();

 private:
  void startThread() TALMO_REQUIRES(mutex_);
  void wake() const TALMO_REQUIRES(mutex_);
  bool runPosted();
  void run(int waiting);

  Mutex mutex_;
  FileDescriptor waiting_ TALMO_GUARDED_BY(mutex_);
  FileDescriptor wakeUp_ TALMO_GUARDED_BY(mutex_);
  std::thread thread_ TALMO_GUARDED_BY(mutex_);
  bool isStopped_ TALMO_GUARDED_BY(mutex_) = false;
  std::map<int, std::shared_ptr<const std::function<void()>>> watched_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::function<void()>> posted_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
