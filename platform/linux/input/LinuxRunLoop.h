#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <poll.h>
#include <vector>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/input/LinuxRunLoopSource.h"
#include "platform/RunLoop.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A run loop over poll(2). It serves sources that are `LinuxRunLoopSource`s.
class LinuxRunLoop : public RunLoop {
 public:
  /// The calling thread's run loop, made on first use; it lives as long as the thread, and longer
  /// when someone else keeps it.
  static std::shared_ptr<LinuxRunLoop> current();

  void addSource(std::shared_ptr<RunLoopSource> source) override;
  void run() override;
  void stop() override { isStopped_ = true; }
  void performBlock(std::function<void()> block) override;
  void wakeUp() override;

 private:
  LinuxRunLoop();

  void runBlocks();
  void serveSources();
  void wait();

  // An eventfd: readable once `wakeUp` has been called.
  const FileDescriptor wakeUp_;
  std::vector<std::shared_ptr<LinuxRunLoopSource>> sources_;
  // What `wait` waits for; kept so that a wait allocates nothing.
  std::vector<pollfd> polled_;
  bool isStopped_ = false;
  Mutex mutex_;
  std::deque<std::function<void()>> blocks_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
