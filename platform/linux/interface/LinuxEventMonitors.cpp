#include "platform/linux/interface/LinuxEventMonitors.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <utility>
#include <vector>

#include "platform/linux/interface/VirtualKeys.h"

namespace talmo {
namespace {

template <class Monitors>
std::vector<EventMonitors::Token> tokens(const Monitors& monitors) {
  std::vector<EventMonitors::Token> all;
  all.reserve(monitors.size());
  for (const auto& [token, monitor] : monitors) all.push_back(token);
  return all;
}

std::optional<InterfaceEvent> asInterfaceEvent(QWindow& window, const QEvent& event) {
  if (event.type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    return InterfaceEvent{.type = InterfaceEvent::Type::keyDown,
                          .window = window.winId(),
                          .keyCode = virtualKeyCode(key.key()),
                          .modifiers = heldModifiers(key.modifiers())};
  }
  if (event.type() != QEvent::MouseButtonPress) return std::nullopt;
  const auto& press = static_cast<const QMouseEvent&>(event);
  const bool isLeft = press.button() == Qt::LeftButton;
  if (!isLeft && press.button() != Qt::RightButton) return std::nullopt;
  return InterfaceEvent{
      .type = isLeft ? InterfaceEvent::Type::leftMouseDown : InterfaceEvent::Type::rightMouseDown,
      .window = window.winId(),
      .modifiers = heldModifiers(press.modifiers())};
}

}  // namespace

EventMonitors::Token LinuxEventMonitors::addGlobalMonitor(
    std::uint64_t mask, std::function<void(const InterfaceEvent&)> handler) {
  global_[++lastToken_] = {.mask = mask, .handler = std::move(handler)};
  if (global_.size() == 1 && qApp != nullptr) {
    if (!presses_) presses_.emplace([this](InterfaceEvent::Type type) { tellGlobal(type); });
    presses_->start();
  }
  return lastToken_;
}

EventMonitors::Token LinuxEventMonitors::addLocalMonitor(
    std::uint64_t mask, std::function<bool(const InterfaceEvent&)> handler) {
  local_[++lastToken_] = {.mask = mask, .handler = std::move(handler)};
  if (local_.size() == 1 && qApp != nullptr) qApp->installEventFilter(this);
  return lastToken_;
}

void LinuxEventMonitors::removeMonitor(Token token) {
  if (local_.erase(token) > 0 && local_.empty() && qApp != nullptr) qApp->removeEventFilter(this);
  if (global_.erase(token) > 0 && global_.empty() && presses_) presses_->stop();
}

bool LinuxEventMonitors::eventFilter(QObject* watched, QEvent* event) {
  // Windows get an event before the widgets in them do.
  auto* const window = qobject_cast<QWindow*>(watched);
  if (window == nullptr || QApplication::activePopupWidget() != nullptr) return false;
  const std::optional<InterfaceEvent> described = asInterfaceEvent(*window, *event);
  return described && tellLocal(*described);
}

bool LinuxEventMonitors::tellLocal(const InterfaceEvent& event) {
  for (const Token token : tokens(local_)) {
    const auto monitor = local_.find(token);
    if (monitor == local_.end() || (monitor->second.mask & eventMask(event.type)) == 0) continue;
    // The monitor may end itself.
    const auto handler = monitor->second.handler;
    bool goesOn = true;
    application_.handle(event, [&] { goesOn = handler(event); });
    if (!goesOn) return true;
  }
  return false;
}

void LinuxEventMonitors::tellGlobal(InterfaceEvent::Type type) {
  if (QApplication::activePopupWidget() != nullptr) return;
  const InterfaceEvent event{.type = type};
  for (const Token token : tokens(global_)) {
    const auto monitor = global_.find(token);
    if (monitor == global_.end() || (monitor->second.mask & eventMask(type)) == 0) continue;
    application_.notePressElsewhere();
    const auto handler = monitor->second.handler;
    handler(event);
  }
}

}  // namespace talmo
