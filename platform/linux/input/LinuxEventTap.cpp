#include "platform/linux/input/LinuxEventTap.h"

#include <utility>

#include "platform/linux/input/LinuxEventTapPort.h"
#include "platform/linux/input/LinuxRunLoop.h"
#include "support/MutexLock.h"

namespace talmo {

void LinuxEventTap::onDisplayLost(std::function<void()> handler) {
  const MutexLock lock(mutex_);
  displayLost_ = std::move(handler);
}

std::shared_ptr<EventTapPort> LinuxEventTap::create(const EventTapParameters& parameters) {
  std::function<void()> displayLost;
  {
    const MutexLock lock(mutex_);
    displayLost = displayLost_;
  }
  return LinuxEventTapPort::open(parameters, std::move(displayLost));
}

std::shared_ptr<RunLoopSource> LinuxEventTap::makeRunLoopSource(
    const std::shared_ptr<EventTapPort>& port) {
  // A port serves itself.
  return std::static_pointer_cast<LinuxEventTapPort>(port);
}

std::shared_ptr<RunLoop> LinuxEventTap::currentRunLoop() {
  return LinuxRunLoop::current();
}

}  // namespace talmo
