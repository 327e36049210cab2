#include "platform/linux/dispatch/LinuxSerialQueue.h"

#include <utility>

namespace talmo {

LinuxSerialQueue::LinuxSerialQueue(std::string label, std::shared_ptr<LinuxQueueThread> thread,
                                   LinuxDelayedWork& delayed)
    : label_(std::move(label)), thread_(std::move(thread)), delayed_(delayed) {}

LinuxSerialQueue::~LinuxSerialQueue() {
  thread_->release();
}

void LinuxSerialQueue::async(std::function<void()> work) {
  thread_->submit(std::move(work));
}

void LinuxSerialQueue::asyncAfter(Duration delay, std::function<void()> work) {
  delayed_.schedule(
      LinuxDelayedWork::after(delay),
      [thread = thread_, work = std::move(work)]() mutable { thread->submit(std::move(work)); });
}

}  // namespace talmo
