#pragma once

#include <cstdint>
#include <string>

#include "platform/Size.h"

namespace talmo {

/// What a window is made with. The initial values are those of the system's windows.
struct WindowParameters {
  // The bits of `NSWindowStyleMask`.
  static constexpr std::uint64_t titled = 1U << 0U;
  static constexpr std::uint64_t closable = 1U << 1U;
  /// The content reaches below the title bar.
  static constexpr std::uint64_t fullSizeContentView = 1U << 15U;

  /// Also where it is hidden: lists of windows show it.
  std::string title;
  std::uint64_t styleMask = 0;
  /// The person cannot change it.
  Size contentSize;
  bool isTitleBarTransparent = false;
  bool isTitleHidden = false;
  /// Whether it follows the mouse from wherever it is not pressed for something else.
  bool isMovableByBackground = false;
  /// Whether it is gone for good when it is closed.
  bool isReleasedWhenClosed = true;
  bool isOpaque = true;
  /// Whether there is nothing behind its content.
  bool hasClearBackground = false;
  /// Whether a click that makes it the active window counts for what is clicked, too.
  bool acceptsFirstMouse = false;

  bool operator==(const WindowParameters&) const = default;
};

}  // namespace talmo
