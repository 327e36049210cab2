#include "platform/simulated/SimulatedEventMonitors.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace talmo {
namespace {

/// The tokens of the monitors; any of them may be gone when its turn comes.
template <class Monitors>
std::vector<EventMonitors::Token> tokens(const Monitors& monitors) {
  std::vector<EventMonitors::Token> found;
  std::ranges::transform(monitors, std::back_inserter(found),
                         [](const auto& monitor) { return monitor.first; });
  return found;
}

/// The handler of a monitor that is still there and sees such events; empty otherwise.
template <class Monitors>
auto handlerFor(const InterfaceEvent& event, const Monitors& monitors, EventMonitors::Token token) {
  const auto found = monitors.find(token);
  const bool sees = found != monitors.end() && (found->second.mask & eventMask(event.type)) != 0;
  return sees ? found->second.handler : decltype(found->second.handler)();
}

}  // namespace

EventMonitors::Token SimulatedEventMonitors::addGlobalMonitor(
    std::uint64_t mask, std::function<void(const InterfaceEvent&)> handler) {
  global_[++lastToken_] = {.mask = mask, .handler = std::move(handler)};
  return lastToken_;
}

EventMonitors::Token SimulatedEventMonitors::addLocalMonitor(
    std::uint64_t mask, std::function<bool(const InterfaceEvent&)> handler) {
  local_[++lastToken_] = {.mask = mask, .handler = std::move(handler)};
  return lastToken_;
}

void SimulatedEventMonitors::removeMonitor(Token token) {
  global_.erase(token);
  local_.erase(token);
}

bool SimulatedEventMonitors::send(const InterfaceEvent& event,
                                  const std::function<void()>& destination) {
  application_.setCurrentEvent(event);
  bool passes = true;
  for (const Token token : tokens(local_)) {
    const auto handler = handlerFor(event, local_, token);
    passes = !handler || handler(event);
    if (!passes) break;
  }
  if (passes) destination();
  application_.setCurrentEvent(std::nullopt);
  return passes;
}

void SimulatedEventMonitors::sendElsewhere(const InterfaceEvent& event) {
  for (const Token token : tokens(global_)) {
    const auto handler = handlerFor(event, global_, token);
    if (handler) handler(event);
  }
}

}  // namespace talmo
