#include "platform/macos/interface/MacStatusButton.h"

#include "platform/macos/interface/EventTranslation.h"
#include "platform/macos/interface/Geometry.h"

namespace talmo {

WindowIdentifier MacStatusButton::window() const {
  return windowIdentifierOf(button_.window.windowNumber);
}

std::optional<Rect> MacStatusButton::windowFrame() const {
  NSWindow* const window = button_.window;
  if (window == nil) return std::nullopt;
  return fromSystem(window.frame);
}

Rect MacStatusButton::visibleFrame() const {
  NSScreen* const own = button_.window.screen;
  NSScreen* const screen = own != nil ? own : [NSScreen mainScreen];
  return screen != nil ? fromSystem(screen.visibleFrame) : Rect{};
}

}  // namespace talmo
