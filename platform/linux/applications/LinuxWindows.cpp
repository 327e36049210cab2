#include "platform/linux/applications/LinuxWindows.h"

#include <algorithm>
#include <cstdint>
#include <memory>
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

LinuxWindow describe(XConnection& connection, xcb_window_t window) {
  LinuxWindow description{.classes = connection.texts(window, classProperty)};
  const std::vector<std::uint32_t> process = connection.cardinals(window, processProperty);
  if (!process.empty()) description.process = static_cast<ProcessIdentifier>(process.front());
  return description;
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
  return describe(*connection, active.front());
}

}  // namespace talmo
