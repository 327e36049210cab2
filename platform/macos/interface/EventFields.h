#pragma once

#include <cstdint>

namespace talmo {

/// What an `NSEvent` says of itself, as plain numbers.
struct EventFields {
  /// Of `NSEventType`.
  std::uint64_t type = 0;
  /// Of the window of this process that it belongs to; what it is without one is not defined.
  std::int64_t windowNumber = 0;
  bool hasWindow = false;
  /// Of a key event; 0 for any other.
  std::uint16_t keyCode = 0;
  /// Of `NSEventModifierFlags`.
  std::uint64_t modifierFlags = 0;
};

}  // namespace talmo
