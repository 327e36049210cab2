#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/LinuxWindow.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// The windows that the window manager manages, as it says on the root window. Any thread: each
/// question has a connection of its own to the display of $DISPLAY. Without a display or a window
/// manager there are none.
class LinuxWindows {
 public:
  LinuxWindows() = delete;

  static std::vector<LinuxWindow> all();

  /// The names of the process's windows, frontmost first, as UTF-8.
  static std::vector<std::string> namesFrontToBack(ProcessIdentifier process);

  /// The window in front; where that is this program's own, as its panel is while it is open, the
  /// one that was in front before.
  static std::optional<LinuxWindow> active();
};

}  // namespace talmo
