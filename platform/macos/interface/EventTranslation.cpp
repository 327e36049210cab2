#include "platform/macos/interface/EventTranslation.h"

namespace talmo {
namespace {

constexpr std::uint64_t held = InterfaceEvent::shift | InterfaceEvent::control |
                               InterfaceEvent::option | InterfaceEvent::command;

bool isKnown(std::uint64_t type) {
  using Type = InterfaceEvent::Type;
  for (const Type known :
       {Type::leftMouseDown, Type::rightMouseDown, Type::rightMouseUp, Type::keyDown}) {
    if (type == static_cast<std::uint64_t>(known)) return true;
  }
  return false;
}

}  // namespace

std::optional<InterfaceEvent> interfaceEventOf(const EventFields& fields) {
  if (!isKnown(fields.type)) return std::nullopt;
  return InterfaceEvent{.type = static_cast<InterfaceEvent::Type>(fields.type),
                        .window = fields.hasWindow ? windowIdentifierOf(fields.windowNumber) : 0,
                        .keyCode = fields.keyCode,
                        .modifiers = fields.modifierFlags & held};
}

WindowIdentifier windowIdentifierOf(std::int64_t windowNumber) {
  return windowNumber > 0 ? static_cast<WindowIdentifier>(windowNumber) : 0;
}

}  // namespace talmo
