#pragma once

#include <optional>
#include <vector>

#include "platform/linux/applications/LinuxWindow.h"

namespace talmo {

/// The windows that the window manager manages, as it says on the root window. Any thread: each
/// question has a connection of its own to the display of $DISPLAY. Without a display or a window
/// manager there are none.
class LinuxWindows {
 public:
  LinuxWindows() = delete;

  static std::vector<LinuxWindow> all();

  /// The window in front.
  static std::optional<LinuxWindow> active();
};

}  // namespace talmo
