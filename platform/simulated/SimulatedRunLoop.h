#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/RunLoop.h"
#include "platform/Semaphore.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A run loop that blocks through `Dispatch`, so that it serves a simulated thread and a real one.
class SimulatedRunLoop : public RunLoop {
 public:
  explicit SimulatedRunLoop(Dispatch& dispatch) : wake_(dispatch.makeSemaphore(0)) {}

  void addSource(std::shared_ptr<RunLoopSource> source) override;
  void run() override;
  void stop() override { isStopped_ = true; }
  void performBlock(std::function<void()> block) override;
  void wakeUp() override { wake_->signal(); }

 private:
  /// Runs the first block, if there is one.
  bool runBlock();

  const std::shared_ptr<Semaphore> wake_;
  std::vector<std::shared_ptr<RunLoopSource>> sources_;
  bool isStopped_ = false;
  Mutex mutex_;
  std::deque<std::function<void()>> blocks_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
