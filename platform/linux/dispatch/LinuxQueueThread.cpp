#include "platform/linux/dispatch/LinuxQueueThread.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

LinuxQueueThread::LinuxQueueThread(LinuxThreads& threads, std::string label,
                                   QualityOfService quality)
    : threads_(threads), label_(std::move(label)), quality_(quality) {}

void LinuxQueueThread::submit(std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    if (closed_) return;
    items_.push_back(std::move(work));
    if (running_) {
      changed_.notify_one();
      return;
    }
    running_ = true;
  }
  threads_.start(label_, quality_, [self = shared_from_this()] { self->serve(); });
}

void LinuxQueueThread::release() {
  const MutexLock lock(mutex_);
  released_ = true;
  changed_.notify_one();
}

void LinuxQueueThread::close() {
  // Released without the lock, as an item may hold the owner of its own queue.
  std::deque<std::function<void()>> dropped;
  const MutexLock lock(mutex_);
  closed_ = true;
  dropped.swap(items_);
  changed_.notify_one();
}

void LinuxQueueThread::serve() {
  while (true) {
    std::function<void()> item;
    {
      MutexLock lock(mutex_);
      while (items_.empty()) {
        if (released_ || closed_) {
          running_ = false;
          return;
        }
        changed_.wait(lock);
      }
      item = std::move(items_.front());
      items_.pop_front();
    }
    item();
  }
}

}  // namespace talmo
