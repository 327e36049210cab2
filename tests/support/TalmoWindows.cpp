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

bool waitForTalmoIcon(ScreenWindows& windows, pid_t talmo) {
  constexpr auto patience = std::chrono::seconds(20);
  constexpr auto pollInterval = std::chrono::milliseconds(20);
  constexpr auto rest = std::chrono::milliseconds(300);
  std::optional<PixelArea> last;
  auto since = std::chrono::steady_clock::now();
  return waitUntil(
      [&] {
        const std::optional<PixelArea> place = talmoIcon(windows, talmo);
        if (place != last) since = std::chrono::steady_clock::now();
        last = place;
        return place && std::chrono::steady_clock::now() - since > rest;
      },
      patience, pollInterval);
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
