#include "platform/linux/input/LinuxAccessibility.h"

#include <memory>
#include <ranges>

#include "platform/linux/input/XProcessWindows.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

std::vector<std::string> LinuxAccessibility::windowTitles(ProcessIdentifier process) {
  std::vector<std::string> titles;
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return titles;
  const std::vector<xcb_window_t> windows = windowsOfProcess(*connection, process);
  for (const xcb_window_t window : windows | std::views::reverse) {
    std::vector<std::string> texts = connection->texts(window, "_NET_WM_NAME");
    if (!texts.empty() && !texts.front().empty()) titles.push_back(std::move(texts.front()));
  }
  return titles;
}

}  // namespace talmo
