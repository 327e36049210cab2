#pragma once

#include <cstdint>

#include "platform/WindowIdentifier.h"

namespace talmo {

/// A click or a key press in the program's own interface.
struct InterfaceEvent {
  /// The numbers of `NSEventType`; an event mask has bit 1 << type for each.
  enum class Type : std::uint8_t {
    leftMouseDown = 1,
    rightMouseDown = 3,
    rightMouseUp = 4,
    keyDown = 10
  };

  // The modifier keys that are held, as in `NSEventModifierFlags`. Caps lock is not held, and the
  // function and keypad bits belong to the key: neither is ever set here.
  static constexpr std::uint64_t shift = 1 << 17;
  static constexpr std::uint64_t control = 1 << 18;
  static constexpr std::uint64_t option = 1 << 19;
  static constexpr std::uint64_t command = 1 << 20;

  Type type = Type::leftMouseDown;
  /// The window of this process that it belongs to; 0 for another process's.
  WindowIdentifier window = 0;
  /// Of a key: its virtual key code (`CGKeyCode`; HIToolbox's Events.h).
  std::uint16_t keyCode = 0;
  std::uint64_t modifiers = 0;

  bool operator==(const InterfaceEvent&) const = default;
};

/// The bit of a type in an event mask (`NSEventMaskFromType`).
constexpr std::uint64_t eventMask(InterfaceEvent::Type type) {
  return std::uint64_t{1} << static_cast<unsigned>(type);
}

}  // namespace talmo
