#pragma once

#include <cstdint>

namespace talmo {

/// One half of a key stroke.
struct KeyboardEvent {
  /// Virtual key code (`CGKeyCode`; HIToolbox's Events.h).
  std::uint16_t keyCode = 0;
  bool isKeyDown = false;
  /// Modifier mask (`CGEventFlags`): Command 0x100000, Control 0x40000, Shift 0x20000.
  std::uint64_t flags = 0;

  bool operator==(const KeyboardEvent&) const = default;
};

}  // namespace talmo
