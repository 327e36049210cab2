#include "platform/linux/interface/LinuxPanel.h"

#include <utility>

#include "platform/linux/interface/ScreenCoordinates.h"

namespace talmo {

WindowIdentifier LinuxPanel::window() const {
  return window_.winId();
}

void LinuxPanel::setContent(const View& content) {
  window_.setContent(content);
}

Rect LinuxPanel::frame() const {
  return fromToolkit(window_.place());
}

void LinuxPanel::setFrame(const Rect& frame, bool isAnimated) {
  window_.setPlace(toToolkit(frame), isAnimated);
}

void LinuxPanel::invalidateShadow() {
  window_.updateShape();
}

bool LinuxPanel::isVisible() const {
  return window_.isVisible();
}

void LinuxPanel::makeKeyAndOrderFront() {
  window_.open();
}

void LinuxPanel::orderOut() {
  // The window manager gives the keys back to the window that had them before.
  window_.hide();
}

void LinuxPanel::setOnSizeChange(std::function<void(Size)> callback) {
  window_.onSizeChange = std::move(callback);
}

void LinuxPanel::setOnCancel(std::function<void()> callback) {
  window_.onCancel = std::move(callback);
}

void LinuxPanel::setOnResignKey(std::function<void()> callback) {
  window_.onResignKey = std::move(callback);
}

}  // namespace talmo
