#include "platform/linux/LinuxSerialQueue.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo {

LinuxSerialQueue::LinuxSerialQueue(std::string label, LinuxWorkerPool& pool,
                                   LinuxDelayedWork& delayed)
    : label_(std::move(label)), pool_(pool), delayed_(delayed) {}

void LinuxSerialQueue::async(std::function<void()> work) {
  {
    const MutexLock lock(mutex_);
    items_.push_back(std::move(work));
    if (draining_) return;
    draining_ = true;
  }
  const bool accepted = pool_.submit([self = shared_from_this()] {
    LinuxThreads::setCurrentName(self->label_);
    self->drain();
  });
  // Nothing runs any more: drops the items.
  if (!accepted) drain();
}

void LinuxSerialQueue::asyncAfter(Duration delay, std::function<void()> work) {
  delayed_.schedule(LinuxDelayedWork::after(delay),
                    [self = shared_from_this(), work = std::move(work)]() mutable {
                      self->async(std::move(work));
                    });
}

void LinuxSerialQueue::drain() {
  while (true) {
    // Released without the lock, as either may submit to this queue when it goes.
    std::deque<std::function<void()>> dropped;
    std::function<void()> item;
    {
      const MutexLock lock(mutex_);
      if (pool_.isClosing()) dropped.swap(items_);
      if (items_.empty()) {
        draining_ = false;
        return;
      }
      item = std::move(items_.front());
      items_.pop_front();
    }
    item();
  }
}

}  // namespace talmo
