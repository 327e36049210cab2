#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <signal.h>
#include <string>

#include <gtest/gtest.h>

#include "tests/desktop/PanelTest.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// How the panel comes and goes with what is around it.
class PanelLife : public PanelTest {
 protected:
  /// Starts a second Talmo; whether it ended in order.
  bool startAgain() {
    const std::unique_ptr<TestProcess> second = desktop_.start({TALMO_PROGRAM});
    const std::optional<int> status = second->waitForExit(20s);
    EXPECT_EQ(status, 0) << second->output();
    return status == 0;
  }

  void xrandr(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "xrandr");
    const std::unique_ptr<TestProcess> process = desktop_.start(std::move(arguments));
    ASSERT_EQ(process->waitForExit(20s), 0) << process->output();
  }

  bool isAt(int right, int top) {
    return waitUntil([&] {
      const std::optional<ScreenWindows::Window> window = panel();
      return window && window->area.right() == right && window->area.y == top;
    });
  }
};

TEST_F(PanelLife, OpensWhenTalmoIsStartedAgain) {
  startWithTray("audacious");
  ASSERT_TRUE(startAgain());
  EXPECT_TRUE(waitForPanel());
  // The keys work at once.
  EXPECT_TRUE(changeBy("Down"));
  // A further start leaves it open.
  ASSERT_TRUE(startAgain());
  settledPicture();
  EXPECT_TRUE(panel());
  // The one and only still routes.
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
}

TEST_F(PanelLife, OpensAtTheUpperRightWhereThereIsNoTray) {
  startTalmo("audacious");
  ASSERT_TRUE(startAgain());
  ASSERT_TRUE(waitForPanel());
  const PixelArea area = settledPicture().area();
  EXPECT_EQ(area.right(), windows_.screen().right());
  EXPECT_EQ(area.y, 1);
  keys_.tap("Escape");
  EXPECT_TRUE(waitForNoPanel());
}

TEST_F(PanelLife, FindsATrayThatComesLate) {
  startTalmo("audacious");
  EXPECT_FALSE(icon());
  tray_.emplace(desktop_);
  ASSERT_TRUE(waitUntil([this] { return icon().has_value(); }, 20s));
  openPanel();
  EXPECT_TRUE(panel());
}

TEST_F(PanelLife, FollowsTheIconWhenTheScreenBecomesSmaller) {
  startWithTray("audacious");
  openPanel();
  const int top = panel()->area.y;
  xrandr(
      {"--newmode", "small", "63.5", "1024", "1072", "1176", "1328", "768", "771", "775", "798"});
  xrandr({"--addmode", "screen", "small"});
  xrandr({"--output", "screen", "--mode", "small"});
  EXPECT_EQ(windows_.screen().width, 1024);
  EXPECT_TRUE(isAt(1024, top)) << panel()->area.right() << ", " << panel()->area.y;
}

TEST_F(PanelLife, IsNotTheEndOfTalmoWhenTheSessionBusGoes) {
  startWithTray("audacious");
  openPanel();
  desktop_.sessionBus().signal(SIGKILL);
  ASSERT_TRUE(desktop_.sessionBus().waitForExit(10s));
  clickIcon();
  EXPECT_TRUE(waitForNoPanel());
  clickIcon();
  EXPECT_TRUE(waitForPanel());
  EXPECT_TRUE(talmo_->process().isRunning()) << talmo_->log();
}

TEST_F(PanelLife, EndsWithAFailureAndWholeSettingsWhenTheXServerGoes) {
  startWithTray("audacious");
  openPanel();
  keys_.tap("Down");
  keys_.tap("Return");
  ASSERT_TRUE(waitUntil([this] { return storedSelection() != "audacious"; }));
  const std::string stored = storedSelection();
  desktop_.xServer().signal(SIGKILL);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 1) << talmo_->log();
  EXPECT_EQ(talmo_->lines("the X display has gone; leaving").size(), 1U) << talmo_->log();
  EXPECT_EQ(storedSelection(), stored);
}

TEST_F(PanelLife, EndsInOrderWhileAMenuIsOpen) {
  startWithTray("audacious");
  clickIcon(MousePresser::right);
  ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }));
  talmo_->process().signal(SIGTERM);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
}

TEST_F(PanelLife, LetsThroughWhatIsBehindItsCornersWithAndWithoutACompositor) {
  startWithTray("audacious");
  const PixelArea area = openPanel();
  const PixelArea pixel{.x = area.x, .y = area.bottom() - 1, .width = 1, .height = 1};
  const auto corner = [&] {
    return ScreenPicture::take(desktop_.displayName(), pixel).at(pixel.x, pixel.y);
  };
  const std::uint32_t cutOff = corner();
  clickIcon();
  ASSERT_TRUE(waitForNoPanel());
  EXPECT_EQ(cutOff, corner());

  const std::unique_ptr<TestProcess> compositor =
      desktop_.start({"picom", "--backend", "xrender", "--config", "/dev/null"});
  ASSERT_TRUE(waitUntil([&] { return windows_.hasCompositor(); }, 20s)) << compositor->output();
  openPanel();
  const std::uint32_t blended = corner();
  clickIcon();
  ASSERT_TRUE(waitForNoPanel());
  EXPECT_TRUE(waitUntil([&] { return corner() == blended; }));
}

}  // namespace
}  // namespace talmo::test
