#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/x11/XConnection.h"
#include "platform/ProcessIdentifier.h"

namespace talmo::test {

/// Makes windows, and says on the root window what a window manager says there about them.
class FakeWindowManager {
 public:
  /// Throws when the display cannot be reached.
  explicit FakeWindowManager(const std::string& display);

  /// A window with both halves of its class the same, and without a process for 0.
  xcb_window_t add(const std::string& windowClass, ProcessIdentifier process);

  /// Puts a window in front; `XCB_WINDOW_NONE` for none.
  void activate(xcb_window_t window);

 private:
  void setNumbers(xcb_window_t window, const std::string& property, xcb_atom_t type,
                  const std::vector<std::uint32_t>& values);
  /// Waits until the server has done everything so far.
  void settle();

  std::unique_ptr<XConnection> connection_;
  std::vector<std::uint32_t> windows_;
};

}  // namespace talmo::test
