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

void LinuxEventTap::onKeysLost(std::function<void()> handler) {
  const MutexLock lock(mutex_);
  keysLost_ = std::move(handler);
}

std::shared_ptr<EventTapPort> LinuxEventTap::create(const EventTapParameters& parameters) {
  LinuxEventTapPort::Handlers handlers;
  std::function<void()> keysLost;
  {
    const MutexLock lock(mutex_);
    handlers.displayLost = displayLost_;
    keysLost = keysLost_;
  }
  handlers.holdChanged = [hold = hold_, keysLost](KeyHold now) {
    *hold = now;
    if (now == KeyHold::lost && keysLost) keysLost();
  };
  std::shared_ptr<LinuxEventTapPort> port =
      LinuxEventTapPort::open(parameters, std::move(handlers));
  if (!port) {
    // Another tap of ours keeps its standing.
    KeyHold before = KeyHold::none;
    hold_->compare_exchange_strong(before, KeyHold::refused);
    if (keysLost) keysLost();
  }
  return port;
}

std::shared_ptr<RunLoopSource> LinuxEventTap::makeRunLoopSource(
    const std::shared_ptr<EventTapPort>& port) {
  // A port serves itself.
  return std::static_pointer_cast<LinuxEventTapPort>(port);
}

std::shared_ptr<RunLoop> LinuxEventTap::currentRunLoop() {
  return LinuxRunLoop::current();
}

KeyHold LinuxEventTap::takeKeyHold() {
  KeyHold refused = KeyHold::refused;
  if (hold_->compare_exchange_strong(refused, KeyHold::none)) return KeyHold::refused;
  return refused;
}

}  // namespace talmo
