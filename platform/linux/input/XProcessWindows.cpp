#include "platform/linux/input/XProcessWindows.h"

#include <cstdint>
#include <string>

namespace talmo {
namespace {

/// Below the root there are frames of the window manager and in them the programs' windows; what is
/// deeper is their own.
constexpr int searchDepth = 3;

bool belongsTo(XConnection& connection, xcb_window_t window, ProcessIdentifier process) {
  const std::vector<std::uint32_t> pid = connection.cardinals(window, "_NET_WM_PID");
  return !pid.empty() && pid.front() == static_cast<std::uint32_t>(process);
}

void addBelow(XConnection& connection, xcb_window_t parent, ProcessIdentifier process, int depth,
              std::vector<xcb_window_t>& found) {
  for (const xcb_window_t window : connection.children(parent)) {
    if (belongsTo(connection, window, process)) {
      found.push_back(window);
    } else if (depth > 1) {
      addBelow(connection, window, process, depth - 1, found);
    }
  }
}

}  // namespace

std::vector<xcb_window_t> windowsOfProcess(XConnection& connection, ProcessIdentifier process) {
  std::vector<xcb_window_t> found;
  for (const std::string list : {"_NET_CLIENT_LIST_STACKING", "_NET_CLIENT_LIST"}) {
    for (const xcb_window_t window : connection.windows(connection.root(), list)) {
      if (belongsTo(connection, window, process)) found.push_back(window);
    }
    if (!found.empty()) return found;
  }
  addBelow(connection, connection.root(), process, searchDepth, found);
  return found;
}

}  // namespace talmo
