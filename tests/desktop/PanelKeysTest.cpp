#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/SilentPanelTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::AnyOf;

/// What the keyboard does with the open panel.
class PanelKeys : public SilentPanelTest {
 protected:
  void tapWithControl(const std::string& keysym) {
    keys_.press("Control_L");
    keys_.tap(keysym);
    keys_.release("Control_L");
  }
};

TEST_F(PanelKeys, MoveTheHighlightAroundTheRows) {
  startWithTray(std::nullopt);
  openPanel();
  const ScreenPicture none = settledPicture();
  ASSERT_TRUE(changeBy("Down"));
  const ScreenPicture first = settledPicture();
  ASSERT_TRUE(changeBy("Down"));
  const ScreenPicture second = settledPicture();
  const std::optional<PixelArea> firstRow = none.difference(first);
  const std::optional<PixelArea> secondRow = none.difference(second);
  ASSERT_TRUE(firstRow);
  ASSERT_TRUE(secondRow);
  EXPECT_GE(secondRow->y, firstRow->bottom());

  // There are two rows.
  ASSERT_TRUE(changeBy("Down"));
  EXPECT_FALSE(settledPicture().difference(first));
  ASSERT_TRUE(changeBy("Up"));
  EXPECT_FALSE(settledPicture().difference(second));
}

TEST_F(PanelKeys, PinTheHighlightedPlayerAndFollowAgain) {
  startWithTray(std::nullopt);
  openPanel();
  ASSERT_TRUE(changeBy("Down"));
  keys_.tap("Return");
  ASSERT_TRUE(waitUntil([this] { return !storedSelection().empty(); }));
  EXPECT_NE(storedSelection(), "auto");
  settledPicture();
  keys_.tap("space");
  EXPECT_TRUE(waitForSelection("auto"));
}

TEST_F(PanelKeys, AreSwallowedWhereTheyWouldMoveTheFocus) {
  startWithTray(std::nullopt);
  openPanel();
  EXPECT_FALSE(changeBy("Tab"));
  // Without a highlight it pins nothing.
  EXPECT_FALSE(changeBy("Return"));
  EXPECT_EQ(storedSelection(), "");
  EXPECT_TRUE(panel());
}

TEST_F(PanelKeys, DoNothingWhileControlIsHeld) {
  startWithTray(std::nullopt);
  openPanel();
  ASSERT_TRUE(changeBy("Down"));
  const ScreenPicture highlighted = settledPicture();
  tapWithControl("Down");
  tapWithControl("Return");
  EXPECT_FALSE(settledPicture().difference(highlighted));
  EXPECT_EQ(storedSelection(), "");
  // They would have come before this one.
  keys_.tap("Return");
  EXPECT_TRUE(waitUntil([this] { return !storedSelection().empty(); }));
}

TEST_F(PanelKeys, CloseThePanelAndGoBackToTheWindowThatHadThem) {
  startWithTray("audacious");
  const std::uint32_t before = windows_.active();
  openPanel();
  ASSERT_TRUE(changeBy("Down"));
  keys_.tap("Escape");
  EXPECT_TRUE(waitForNoPanel());
  EXPECT_TRUE(waitUntil([&] { return windows_.active() == before; }));
  // Nothing that was pressed at the panel. The key that closed it may be let go here.
  EXPECT_THAT(windowAfterTyping(), AnyOf("+z -z", "-Escape +z -z"));
}

TEST_F(PanelKeys, RouteMediaWhileThePanelIsOpen) {
  startWithTray("audacious");
  openPanel();
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  EXPECT_TRUE(panel());
}

TEST_F(PanelKeys, LeaveThePanelOpenWhileAMediaKeyIsHeld) {
  startWithTray("audacious");
  openPanel();
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  EXPECT_FALSE(waitUntil([this] { return !panel(); }, 1s));
  keys_.release("XF86AudioNext");
  // The panel has the keys still, and closes when the focus does go.
  EXPECT_TRUE(changeBy("Down"));
  window_.focus();
  EXPECT_TRUE(waitForNoPanel());
}

}  // namespace
}  // namespace talmo::test
