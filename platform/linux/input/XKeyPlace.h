#pragma once

#include <compare>
#include <cstdint>

#include <xcb/xcb.h>

namespace talmo {

/// A key together with the modifiers that are down with it.
struct XKeyPlace {
  xcb_keycode_t keycode = 0;
  /// Real modifiers, as in the low eight bits of a key event's state.
  std::uint16_t modifiers = 0;

  auto operator<=>(const XKeyPlace&) const = default;
};

}  // namespace talmo
