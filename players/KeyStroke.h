#pragma once

#include <cstdint>

namespace talmo {

/// One synthesized key press.
struct KeyStroke {
  /// Virtual key code (`CGKeyCode`).
  std::uint16_t keyCode = 0;
  /// Modifier mask (`CGEventFlags`): Command 0x100000, Control 0x40000, Shift 0x20000.
  std::uint64_t flags = 0;

  bool operator==(const KeyStroke&) const = default;
};

}  // namespace talmo
