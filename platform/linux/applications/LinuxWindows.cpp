#include "platform/linux/applications/LinuxWindows.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <ranges>
#include <string_view>
#include <unistd.h>
#include <utility>

#include "platform/linux/x11/XConnection.h"

namespace talmo {
namespace {

// The properties of freedesktop.org's window manager hints, and of ICCCM.
constexpr const char* clientList = "_NET_CLIENT_LIST";
constexpr const char* stackedClientList = "_NET_CLIENT_LIST_STACKING";
constexpr const char* activeWindow = "_NET_ACTIVE_WINDOW";
constexpr const char* processProperty = "_NET_WM_PID";
constexpr const char* classProperty = "WM_CLASS";
constexpr const char* nameProperty = "_NET_WM_NAME";
constexpr const char* stateProperty = "_NET_WM_STATE";
constexpr const char* typeProperty = "_NET_WM_WINDOW_TYPE";

// Of this program's windows, from the name of its application.
constexpr std::string_view ownClass = "talmo";

LinuxWindow describe(XConnection& connection, xcb_window_t window) {
  LinuxWindow description{.classes = connection.texts(window, classProperty)};
  const std::vector<std::uint32_t> process = connection.cardinals(window, processProperty);
  if (!process.empty()) description.process = static_cast<ProcessIdentifier>(process.front());
  return description;
}

/// A window of this program's interface.
bool isOurs(const LinuxWindow& window) {
  return window.process == ::getpid() &&
         std::ranges::find(window.classes, ownClass) != window.classes.end();
}

/// Whether the window can be worked with: no bar, no background, not put away.
bool isOrdinary(XConnection& connection, xcb_window_t window) {
  const std::vector<xcb_atom_t> states = connection.atoms(window, stateProperty);
  const std::vector<xcb_atom_t> types = connection.atoms(window, typeProperty);
  const auto has = [&](const std::vector<xcb_atom_t>& atoms, const char* name) {
    return std::ranges::find(atoms, connection.atom(name)) != atoms.end();
  };
  return !has(states, "_NET_WM_STATE_HIDDEN") && !has(types, "_NET_WM_WINDOW_TYPE_DOCK") &&
         !has(types, "_NET_WM_WINDOW_TYPE_DESKTOP");
}

}  // namespace

std::vector<LinuxWindow> LinuxWindows::all() {
  std::vector<LinuxWindow> windows;
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return windows;
  for (const xcb_window_t window : connection->windows(connection->root(), clientList)) {
    windows.push_back(describe(*connection, window));
  }
  return windows;
}

std::vector<std::string> LinuxWindows::namesFrontToBack(ProcessIdentifier process) {
  std::vector<std::string> names;
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return names;
  for (const xcb_window_t window : connection->windows(connection->root(), stackedClientList)) {
    if (describe(*connection, window).process != process) continue;
    for (std::string& name : connection->texts(window, nameProperty)) {
      names.push_back(std::move(name));
    }
  }
  std::ranges::reverse(names);
  return names;
}

std::optional<LinuxWindow> LinuxWindows::active() {
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return std::nullopt;
  const std::vector<xcb_window_t> active = connection->windows(connection->root(), activeWindow);
  if (active.empty() || active.front() == XCB_WINDOW_NONE) return std::nullopt;
  LinuxWindow front = describe(*connection, active.front());
  if (!isOurs(front)) return front;
  std::vector<xcb_window_t> stacked = connection->windows(connection->root(), stackedClientList);
  for (const xcb_window_t window : stacked | std::views::reverse) {
    LinuxWindow other = describe(*connection, window);
    if (!isOurs(other) && isOrdinary(*connection, window)) return other;
  }
  return std::nullopt;
}

}  // namespace talmo
