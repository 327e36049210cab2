#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "platform/linux/LinuxDelayedWork.h"
#include "platform/linux/LinuxWorkerPool.h"
#include "platform/Queue.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A serial queue on the workers of a pool: while it has items, one worker bears its name and runs
/// them. Pending items keep the queue alive. It is let go of before its dispatch is destroyed.
class LinuxSerialQueue : public Queue, public std::enable_shared_from_this<LinuxSerialQueue> {
 public:
  LinuxSerialQueue(std::string label, LinuxWorkerPool& pool, LinuxDelayedWork& delayed);

  void async(std::function<void()> work) override;
  void asyncAfter(Duration delay, std::function<void()> work) override;
  const std::string& label() const override { return label_; }

 private:
  void drain();

  const std::string label_;
  LinuxWorkerPool& pool_;
  LinuxDelayedWork& delayed_;
  Mutex mutex_;
  std::deque<std::function<void()>> items_ TALMO_GUARDED_BY(mutex_);
  bool draining_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
