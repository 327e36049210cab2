#include "platform/linux/dispatch/LinuxWorkerPool.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

LinuxWorkerPool::LinuxWorkerPool(LinuxThreads& threads, std::string name, QualityOfService quality,
                                 Duration idle)
    : threads_(threads), name_(std::move(name)), quality_(quality), idle_(idle) {}

bool LinuxWorkerPool::submit(std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    if (closing_) return false;
    work_.push_back(std::move(work));
    if (work_.size() <= idleWorkers_) {
      changed_.notify_one();
      return true;
    }
  }
  threads_.start(name_, quality_, [this] { serve(); });
  return true;
}

void LinuxWorkerPool::close() {
  const MutexLock lock(mutex_);
  closing_ = true;
  changed_.notify_all();
}

void LinuxWorkerPool::serve() {
  while (true) {
    std::function<void()> work;
    {
      MutexLock lock(mutex_);
      const Uptime deadline = std::chrono::steady_clock::now() + idle_;
      while (work_.empty()) {
        if (closing_ || std::chrono::steady_clock::now() >= deadline) return;
        ++idleWorkers_;
        changed_.wait_until(lock, deadline);
        --idleWorkers_;
      }
      work = std::move(work_.front());
      work_.pop_front();
    }
    work();
  }
}

}  // namespace talmo
