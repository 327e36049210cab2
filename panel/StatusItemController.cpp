#include "panel/StatusItemController.h"

#include <optional>
#include <utility>

#include "platform/Platform.h"

namespace talmo {
namespace {

using EventType = InterfaceEvent::Type;

constexpr double dimmed = 0.35;

}  // namespace

std::shared_ptr<StatusItemController> StatusItemController::make() {
  std::shared_ptr<StatusItemController> controller(new StatusItemController);
  controller->statusItem_->setAction(
      eventMask(EventType::leftMouseDown) | eventMask(EventType::rightMouseUp),
      [weak = std::weak_ptr(controller)] {
        if (const std::shared_ptr<StatusItemController> self = weak.lock()) self->handleClick();
      });
  return controller;
}

StatusItemController::StatusItemController()
    : statusItem_(platform().statusBar().makeStatusItem(StatusBar::variableLength)) {
  updateIcon();
}

void StatusItemController::setPermissionWarning(bool hasPermissionWarning) {
  hasPermissionWarning_ = hasPermissionWarning;
  updateIcon();
}

void StatusItemController::setRoutingOff(bool isRoutingOff) {
  isRoutingOff_ = isRoutingOff;
  updateIcon();
}

void StatusItemController::updateIcon() {
  statusItem_->setImage(hasPermissionWarning_ ? StatusImage{.kind = StatusImage::Kind::symbol,
                                                            .name = "exclamationmark.triangle",
                                                            .isTemplate = false,
                                                            .accessibilityDescription = "Talmo"}
                                              : StatusImage{.kind = StatusImage::Kind::asset,
                                                            .name = "MenuBarIcon",
                                                            .isTemplate = true,
                                                            .accessibilityDescription = "Talmo"});
  statusItem_->setAlpha(isRoutingOff_ ? dimmed : 1.0);
}

void StatusItemController::handleClick() {
  const std::optional<InterfaceEvent> event = platform().application().currentEvent();
  if (event && event->type == EventType::rightMouseUp) {
    statusItem_->setMenu(makeMenu());
    statusItem_->performClick();
    return;
  }
  // A copy, as the callback may be replaced while it runs.
  const std::function<void()> onLeftClick = onLeftClick_;
  if (onLeftClick) onLeftClick();
}

Menu StatusItemController::makeMenu() {
  Menu menu;
  menu.items = {{.title = "About Talmo", .action = &StatusItemController::showAbout},
                {},
                {.title = "Quit Talmo",
                 .action = [] { platform().application().terminate(); },
                 .keyEquivalent = "q"}};
  menu.didClose = [weak = weak_from_this()] {
    // An attached menu takes every click. It is still in use here, so it goes a moment later.
    platform().dispatch().mainQueue().async([weak] {
      if (const std::shared_ptr<StatusItemController> self = weak.lock()) {
        self->statusItem_->setMenu(std::nullopt);
      }
    });
  };
  return menu;
}

void StatusItemController::showAbout() {
  platform().application().activate();
  platform().application().orderFrontStandardAboutPanel();
}

}  // namespace talmo
