#include "platform/linux/dispatch/LinuxDelayedWork.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

void LinuxDelayedWork::schedule(Uptime due, std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    if (closed_) return;
    const auto place = work_.emplace(due, std::move(work));
    if (started_) {
      if (place == work_.begin()) changed_.notify_one();
      return;
    }
    started_ = true;
  }
  threads_.start("timers", QualityOfService::unspecified, [this] { serve(); });
}

void LinuxDelayedWork::close() {
  std::multimap<Uptime, std::function<void()>> released;
  const MutexLock lock(mutex_);
  closed_ = true;
  released.swap(work_);
  changed_.notify_one();
}

Uptime LinuxDelayedWork::after(Duration delay) {
  const Uptime now = std::chrono::steady_clock::now();
  return delay < Uptime::max() - now ? now + delay : Uptime::max();
}

void LinuxDelayedWork::serve() {
  while (true) {
    std::function<void()> work;
    {
      MutexLock lock(mutex_);
      while (work_.empty() || std::chrono::steady_clock::now() < work_.begin()->first) {
        if (closed_) return;
        if (work_.empty()) {
          changed_.wait(lock);
        } else {
          const Uptime due = work_.begin()->first;
          changed_.wait_until(lock, due);
        }
      }
      work = std::move(work_.begin()->second);
      work_.erase(work_.begin());
    }
    work();
  }
}

}  // namespace talmo
