#include "platform/macos/interface/MacEventMonitors.h"

#include <cassert>
#include <utility>

#include "platform/macos/interface/Events.h"

namespace talmo {

// The system's blocks share their handlers with their owner, who empties them. They are copied
// before each call, as they may end their own monitor.

MacEventMonitors::~MacEventMonitors() {
  while (!monitors_.empty()) removeMonitor(monitors_.begin()->first);
}

EventMonitors::Token MacEventMonitors::addGlobalMonitor(
    std::uint64_t mask, std::function<void(const InterfaceEvent&)> handler) {
  assert(NSThread.isMainThread);
  const auto shared =
      std::make_shared<std::function<void(const InterfaceEvent&)>>(std::move(handler));
  const id monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:mask handler:^(NSEvent* event) {
    const auto call = *shared;
    const auto told = interfaceEvent(event);
    if (call && told) call(*told);
  }];
  monitors_[++lastToken_] = {.monitor = monitor, .silence = [shared] { *shared = nullptr; }};
  return lastToken_;
}

EventMonitors::Token MacEventMonitors::addLocalMonitor(
    std::uint64_t mask, std::function<bool(const InterfaceEvent&)> handler) {
  assert(NSThread.isMainThread);
  const auto shared =
      std::make_shared<std::function<bool(const InterfaceEvent&)>>(std::move(handler));
  const id monitor =
      [NSEvent addLocalMonitorForEventsMatchingMask:mask handler:^NSEvent*(NSEvent* event) {
        const auto call = *shared;
        const auto told = interfaceEvent(event);
        const bool passes = !call || !told || call(*told);
        return passes ? event : nil;
      }];
  monitors_[++lastToken_] = {.monitor = monitor, .silence = [shared] { *shared = nullptr; }};
  return lastToken_;
}

void MacEventMonitors::removeMonitor(Token token) {
  const auto found = monitors_.find(token);
  if (found == monitors_.end()) return;
  const Monitor gone = std::move(found->second);
  monitors_.erase(found);
  gone.silence();
  // Removing one twice, or nil, is an error.
  if (gone.monitor != nil) [NSEvent removeMonitor:gone.monitor];
}

}  // namespace talmo
