#pragma once

#include <cstdint>

namespace talmo {

/// A key stroke that an application's Linux build takes in another form.
struct StrokeException {
  /// The stroke as the program posts it: virtual key code and modifier mask.
  std::uint16_t keyCode = 0;
  std::uint64_t flags = 0;
  /// The X keysym to send in its place, without modifiers (X11/keysym.h, X11/XF86keysym.h).
  std::uint32_t keysym = 0;
};

}  // namespace talmo
