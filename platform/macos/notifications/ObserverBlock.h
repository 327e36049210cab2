#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// What an observer of notices calls, until it is taken away.
class ObserverBlock {
 public:
  explicit ObserverBlock(std::function<void()> block)
      : block_(std::make_shared<const std::function<void()>>(std::move(block))) {}

  /// Calls the block, unless it was taken away.
  void run() {
    // Kept, as it may take itself away.
    const std::shared_ptr<const std::function<void()>> block = current();
    if (block) (*block)();
  }

  /// Lets go of the block, and of what it holds.
  void takeAway() {
    // Released after the lock: what the block holds may have a destructor that comes back here.
    std::shared_ptr<const std::function<void()>> released;
    const MutexLock lock(mutex_);
    released.swap(block_);
  }

 private:
  std::shared_ptr<const std::function<void()>> current() {
    const MutexLock lock(mutex_);
    return block_;
  }

  Mutex mutex_;
  std::shared_ptr<const std::function<void()>> block_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
