#include "tests/support/TalmoWindows.h"

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

// The types that the toolkit gives to windows that no window manager is to touch: the one in the
// tray has one more than a menu.

bool isInTray(const ScreenWindows::Window& window) {
  return !window.isManaged && window.isOfType("_KDE_NET_WM_WINDOW_TYPE_OVERRIDE");
}

bool isMenu(const ScreenWindows::Window& window) {
  return !window.isManaged &&
         window.types == std::vector<std::string>{"_NET_WM_WINDOW_TYPE_NORMAL"};
}

}  // namespace

std::optional<PixelArea> talmoIcon(ScreenWindows& windows, pid_t talmo) {
  for (const ScreenWindows::Window& window : windows.of(talmo)) {
    if (isInTray(window) && window.area.height > 1) return window.area;
  }
  return std::nullopt;
}

std::function<bool()> talmoIconRests(ScreenWindows& windows, pid_t talmo) {
  static constexpr auto rest = std::chrono::milliseconds(300);
  return [&windows, talmo, last = std::optional<PixelArea>(),
          since = std::chrono::steady_clock::time_point()]() mutable {
    const std::optional<PixelArea> place = talmoIcon(windows, talmo);
    const auto now = std::chrono::steady_clock::now();
    if (place != last) since = now;
    last = place;
    return place && now - since > rest;
  };
}

bool waitForTalmoIcon(ScreenWindows& windows, pid_t talmo) {
  constexpr auto patience = std::chrono::seconds(20);
  constexpr auto pollInterval = std::chrono::milliseconds(20);
  return waitUntil(talmoIconRests(windows, talmo), patience, pollInterval);
}

std::optional<ScreenWindows::Window> talmoPanel(ScreenWindows& windows, pid_t talmo) {
  for (ScreenWindows::Window& window : windows.of(talmo)) {
    if (window.isManaged && window.isOfType("_NET_WM_WINDOW_TYPE_UTILITY")) {
      return std::move(window);
    }
  }
  return std::nullopt;
}

std::optional<ScreenWindows::Window> talmoMenu(ScreenWindows& windows, pid_t talmo) {
  for (ScreenWindows::Window& window : windows.of(talmo)) {
    if (isMenu(window)) return std::move(window);
  }
  return std::nullopt;
}

}  // namespace talmo::test
