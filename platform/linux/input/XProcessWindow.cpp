#include "platform/linux/input/XProcessWindow.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "platform/linux/input/XProcessWindows.h"
#include "platform/linux/x11/XReply.h"

namespace talmo {
namespace {

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
  for (const xcb_window_t window : windowsOfProcess(connection, process)) {
    const std::tuple rank{isShown(connection, window), isNormal(connection, window),
                          area(connection, window)};
    if (best != XCB_WINDOW_NONE && rank < bestRank) continue;
    best = window;
    bestRank = rank;
  }
  return best;
}

}  // namespace talmo
