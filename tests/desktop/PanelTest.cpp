#include "tests/desktop/PanelTest.h"

#include <chrono>
#include <fstream>

#include <nlohmann/json.hpp>

#include "tests/support/TalmoWindows.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 20s;
constexpr auto pollInterval = 20ms;

/// For how long nothing may have changed in a picture that has settled.
constexpr auto stillness = 300ms;

}  // namespace

PanelTest::PanelTest() : mouse_(desktop_.displayName()), windows_(desktop_.displayName()) {}

void PanelTest::startWithTray(const std::optional<std::string>& selection) {
  tray_.emplace(desktop_);
  startTalmo(selection);
  ASSERT_TRUE(waitForTalmoIcon(windows_, talmo_->process().pid()))
      << "no icon came into the tray: " << talmo_->log();
}

std::optional<PixelArea> PanelTest::icon() {
  return talmoIcon(windows_, talmo_->process().pid());
}

std::optional<ScreenWindows::Window> PanelTest::panel() {
  return talmoPanel(windows_, talmo_->process().pid());
}

std::optional<ScreenWindows::Window> PanelTest::menu() {
  return talmoMenu(windows_, talmo_->process().pid());
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
