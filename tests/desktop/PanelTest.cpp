#include "tests/desktop/PanelTest.h"

#include <algorithm>
#include <chrono>
#include <fstream>

#include <nlohmann/json.hpp>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 20s;
constexpr auto pollInterval = 20ms;

/// For how long nothing may have changed in a picture that has settled.
constexpr auto stillness = 300ms;

/// The types that the toolkit gives to windows that no window manager is to touch: the one in the
/// tray has one more than a menu.
bool isInTray(const ScreenWindows::Window& window) {
  return !window.isManaged && window.isOfType("_KDE_NET_WM_WINDOW_TYPE_OVERRIDE");
}

bool isMenu(const ScreenWindows::Window& window) {
  return !window.isManaged &&
         window.types == std::vector<std::string>{"_NET_WM_WINDOW_TYPE_NORMAL"};
}

}  // namespace

PanelTest::PanelTest()
    : mouse_(desktop_.displayName()),
      windows_(desktop_.displayName()),
      player_(desktop_, "audacious"),
      otherPlayer_(desktop_, "strawberry") {
  install("audacious", FakePlayerProcess::command("audacious"));
  install("strawberry", FakePlayerProcess::command("strawberry"));
}

void PanelTest::startWithTray(const std::optional<std::string>& selection) {
  tray_.emplace(desktop_);
  startTalmo(selection);
  ASSERT_TRUE(waitUntil([this] { return icon().has_value(); }, patience, pollInterval))
      << "no icon came into the tray: " << talmo_->log();
}

std::optional<PixelArea> PanelTest::icon() {
  for (const ScreenWindows::Window& window : windows_.of(talmo_->process().pid())) {
    if (isInTray(window) && window.area.height > 1) return window.area;
  }
  return std::nullopt;
}

std::optional<ScreenWindows::Window> PanelTest::panel() {
  for (ScreenWindows::Window& window : windows_.of(talmo_->process().pid())) {
    if (window.isManaged && window.isOfType("_NET_WM_WINDOW_TYPE_UTILITY")) return window;
  }
  return std::nullopt;
}

std::optional<ScreenWindows::Window> PanelTest::menu() {
  for (ScreenWindows::Window& window : windows_.of(talmo_->process().pid())) {
    if (isMenu(window)) return window;
  }
  return std::nullopt;
}

void PanelTest::clickIcon(std::uint8_t button) {
  const std::optional<PixelArea> place = icon();
  ASSERT_TRUE(place);
  mouse_.click(place->middleX(), place->middleY(), button);
}

PixelArea PanelTest::openPanel() {
  clickIcon();
  EXPECT_TRUE(waitForPanel()) << talmo_->log();
  return settledPicture().area();
}

bool PanelTest::waitForPanel() {
  return waitUntil([this] { return panel().has_value(); }, patience, pollInterval);
}

bool PanelTest::waitForNoPanel() {
  return waitUntil([this] { return !panel(); }, patience, pollInterval);
}

ScreenPicture PanelTest::settledPicture() {
  const auto take = [this] {
    const std::optional<ScreenWindows::Window> window = panel();
    return ScreenPicture::take(desktop_.displayName(),
                               window ? window->area : PixelArea{0, 0, 1, 1});
  };
  ScreenPicture last = take();
  auto since = std::chrono::steady_clock::now();
  const bool isSettled = waitUntil(
      [&] {
        ScreenPicture now = take();
        const bool isSame = now.area() == last.area() && !now.difference(last);
        if (!isSame) since = std::chrono::steady_clock::now();
        last = std::move(now);
        return isSame && std::chrono::steady_clock::now() - since > stillness;
      },
      patience, pollInterval);
  EXPECT_TRUE(isSettled) << "the panel does not come to rest";
  return last;
}

std::optional<PixelArea> PanelTest::changeBy(const std::string& keysym) {
  const ScreenPicture before = settledPicture();
  keys_.tap(keysym);
  const ScreenPicture after = settledPicture();
  if (!(before.area() == after.area())) return after.area();
  return before.difference(after);
}

std::string PanelTest::storedSelection() {
  std::ifstream file(TalmoProcess::settingsFile(desktop_));
  const nlohmann::json settings = nlohmann::json::parse(file, nullptr, false);
  return settings.is_object() ? settings.value("selectedTargetAppID", "") : "";
}

bool PanelTest::waitForSelection(const std::string& id) {
  return waitUntil([&] { return storedSelection() == id; }, patience, pollInterval);
}

}  // namespace talmo::test
