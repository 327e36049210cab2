#include "platform/macos/interface/Events.h"

#include "platform/macos/interface/EventTranslation.h"

namespace talmo {
namespace {

using Type = InterfaceEvent::Type;

static_assert(eventMask(Type::leftMouseDown) == NSEventMaskLeftMouseDown);
static_assert(eventMask(Type::rightMouseDown) == NSEventMaskRightMouseDown);
static_assert(eventMask(Type::rightMouseUp) == NSEventMaskRightMouseUp);
static_assert(eventMask(Type::keyDown) == NSEventMaskKeyDown);

static_assert(InterfaceEvent::shift == NSEventModifierFlagShift);
static_assert(InterfaceEvent::control == NSEventModifierFlagControl);
static_assert(InterfaceEvent::option == NSEventModifierFlagOption);
static_assert(InterfaceEvent::command == NSEventModifierFlagCommand);

}  // namespace

std::optional<InterfaceEvent> interfaceEvent(NSEvent* event) {
  if (event == nil) return std::nullopt;
  return interfaceEventOf(
      {.type = event.type,
       // The number is there without a window as well, and is another process's then.
       .windowNumber = event.windowNumber,
       .hasWindow = event.window != nil,
       // Raises for what is no key event.
       .keyCode = event.type == NSEventTypeKeyDown ? event.keyCode : std::uint16_t{0},
       .modifierFlags = event.modifierFlags});
}

}  // namespace talmo
