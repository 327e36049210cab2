#include "platform/macos/input/MacEventTap.h"

#include "platform/macos/input/MacEventTapPort.h"
#include "platform/macos/input/MacRunLoop.h"
#include "platform/macos/input/MacRunLoopSource.h"

namespace talmo {

std::shared_ptr<EventTapPort> MacEventTap::create(const EventTapParameters& parameters) {
  return MacEventTapPort::open(parameters);
}

std::shared_ptr<RunLoopSource> MacEventTap::makeRunLoopSource(
    const std::shared_ptr<EventTapPort>& port) {
  return std::make_shared<MacRunLoopSource>(std::static_pointer_cast<MacEventTapPort>(port));
}

std::shared_ptr<RunLoop> MacEventTap::currentRunLoop() {
  return MacRunLoop::current();
}

}  // namespace talmo
