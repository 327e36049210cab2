#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/linux/x11/XConnection.h"
#include "tests/support/PixelArea.h"

namespace talmo::test {

/// What can be seen of a program's windows on a display, asked on a connection of its own.
class ScreenWindows {
 public:
  struct Window {
    std::uint32_t id = 0;
    PixelArea area;
    std::string title;
    /// Names of its _NET_WM_WINDOW_TYPE.
    std::vector<std::string> types;
    /// Whether the window manager manages it.
    bool isManaged = false;

    bool isOfType(const std::string& type) const;
  };

  /// Throws when the display cannot be reached.
  explicit ScreenWindows(const std::string& display);

  /// The windows that say that they are the process's and that are on the screen.
  std::vector<Window> of(pid_t process);

  /// The one of these that has this title; nothing when there is none.
  std::optional<Window> titled(pid_t process, const std::string& title);

  /// The window in front as the window manager says; 0 when there is none.
  std::uint32_t active();

  /// Where a window is; nothing when there is none of that number.
  std::optional<PixelArea> area(std::uint32_t window) const;

  /// Whether somebody blends translucent windows.
  bool hasCompositor();

  /// The size of all screens together.
  PixelArea screen() const;

 private:
  void collect(std::uint32_t parent, pid_t process, std::vector<Window>& found);
  std::optional<Window> describe(std::uint32_t window, pid_t process);

  std::unique_ptr<XConnection> connection_;
};

}  // namespace talmo::test
