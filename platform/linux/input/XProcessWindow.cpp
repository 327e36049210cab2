#include "platform/linux/input/XProcessWindow.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "platform/linux/x11/XReply.h"

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

/// The top-level windows of the process, from the one used longest ago to the one used last.
std::vector<xcb_window_t> windowsOf(XConnection& connection, ProcessIdentifier process) {
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

bool isNormal(XConnection& connection, xcb_window_t window) {
  const std::vector<xcb_atom_t> types = connection.atoms(window, "_NET_WM_WINDOW_TYPE");
  const xcb_atom_t normal = connection.atom("_NET_WM_WINDOW_TYPE_NORMAL");
  if (!types.empty() && std::find(types.begin(), types.end(), normal) == types.end()) return false;
  return connection.windows(window, "WM_TRANSIENT_FOR").empty();
}

/// On the screen, or minimised: then a window manager keeps its WM_STATE.
bool isShown(XConnection& connection, xcb_window_t window) {
  const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
      connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
  if (!attributes || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY) return false;
  return attributes->map_state != XCB_MAP_STATE_UNMAPPED ||
         connection.hasProperty(window, "WM_STATE");
}

std::uint32_t area(const XConnection& connection, xcb_window_t window) {
  const XReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
      connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
  return geometry ? std::uint32_t{geometry->width} * geometry->height : 0;
}

}  // namespace

xcb_window_t mainWindowOfProcess(XConnection& connection, ProcessIdentifier process) {
  xcb_window_t best = XCB_WINDOW_NONE;
  std::tuple<bool, bool, std::uint32_t> bestRank;
  for (const xcb_window_t window : windowsOf(connection, process)) {
    const std::tuple rank{isShown(connection, window), isNormal(connection, window),
                          area(connection, window)};
    if (best != XCB_WINDOW_NONE && rank < bestRank) continue;
    best = window;
    bestRank = rank;
  }
  return best;
}

}  // namespace talmo
