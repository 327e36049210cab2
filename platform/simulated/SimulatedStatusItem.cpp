#include "platform/simulated/SimulatedStatusItem.h"

#include <algorithm>
#include <utility>

namespace talmo {

class SimulatedStatusItem::Button : public StatusButton {
 public:
  Button(const SimulatedScreen& screen, WindowIdentifier window)
      : screen_(screen), window_(window) {}

  WindowIdentifier window() const override { return window_; }
  std::optional<Rect> windowFrame() const override { return screen_.buttonFrame; }
  Rect visibleFrame() const override { return screen_.visibleFrame; }

 private:
  const SimulatedScreen& screen_;
  const WindowIdentifier window_;
};

SimulatedStatusItem::SimulatedStatusItem(std::vector<SimulatedStatusItem*>& items,
                                         const SimulatedScreen& screen,
                                         SimulatedApplication& application,
                                         SimulatedEventMonitors& monitors, double length)
    : items_(items),
      monitors_(monitors),
      length_(length),
      window_(application.makeWindow()),
      button_(std::make_shared<Button>(screen, window_)) {
  items_.push_back(this);
}

SimulatedStatusItem::~SimulatedStatusItem() {
  std::erase(items_, this);
}

std::shared_ptr<StatusButton> SimulatedStatusItem::button() {
  return button_;
}

void SimulatedStatusItem::setAction(std::uint64_t mask, std::function<void()> action) {
  mask_ = mask;
  action_ = std::move(action);
}

void SimulatedStatusItem::performClick() {
  if (menu_) {
    openMenu_ = menu_;
    return;
  }
  const std::function<void()> action = action_;
  if (action) action();
}

void SimulatedStatusItem::leftClick() {
  send(InterfaceEvent::Type::leftMouseDown);
}

void SimulatedStatusItem::rightClick() {
  send(InterfaceEvent::Type::rightMouseDown);
  send(InterfaceEvent::Type::rightMouseUp);
}

void SimulatedStatusItem::send(InterfaceEvent::Type type) {
  monitors_.send({.type = type, .window = window_}, [&] {
    const bool isPress = type != InterfaceEvent::Type::rightMouseUp;
    if (menu_ ? isPress : (mask_ & eventMask(type)) != 0) performClick();
  });
}

bool SimulatedStatusItem::choose(const std::string& title) {
  if (!openMenu_) return false;
  const auto item = std::ranges::find(openMenu_->items, title, &MenuItem::title);
  if (item == openMenu_->items.end() || item->isSeparator()) return false;
  const std::function<void()> action = item->action;
  dismissMenu();
  if (action) action();
  return true;
}

void SimulatedStatusItem::dismissMenu() {
  if (!openMenu_) return;
  const std::function<void()> didClose = std::exchange(openMenu_, std::nullopt)->didClose;
  if (didClose) didClose();
}

}  // namespace talmo
