#include <algorithm>
#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/PanelTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::AnyOf;
using ::testing::ElementsAre;

/// What the mouse does with the icon and the panel.
class PanelClicks : public PanelTest {};

TEST_F(PanelClicks, OpenThePanelUnderTheIconAndCloseItOnce) {
  startWithTray("audacious");
  const PixelArea area = openPanel();
  // The icon is near the right edge, so the panel is as far to the right as it goes.
  EXPECT_EQ(area.right(), windows_.screen().right());
  EXPECT_EQ(area.y, icon()->bottom() + 1);

  clickIcon();
  EXPECT_TRUE(waitForNoPanel());
  // Had the click opened it again, it would be there before the answer to a later key.
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  EXPECT_FALSE(panel());

  openPanel();
  EXPECT_TRUE(panel());
}

TEST_F(PanelClicks, InQuickSuccessionCountOneByOne) {
  startWithTray("audacious");
  openPanel();
  clickIcon();
  clickIcon();
  clickIcon();
  EXPECT_TRUE(waitForNoPanel());
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  EXPECT_FALSE(panel());
}

TEST_F(PanelClicks, OnTheRightButtonShowTheMenuAndTheNextLeftOneThePanel) {
  startWithTray("audacious");
  clickIcon(MousePresser::right);
  ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }));
  EXPECT_FALSE(panel());
  keys_.tap("Escape");
  ASSERT_TRUE(waitUntil([this] { return !menu(); }));
  openPanel();
  EXPECT_TRUE(panel());
  EXPECT_FALSE(menu());
}

TEST_F(PanelClicks, OnQuitEndTheProgramInOrder) {
  startWithTray("audacious");
  clickIcon(MousePresser::right);
  ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }));
  const PixelArea area = menu()->area;
  mouse_.click(area.middleX(), area.bottom() - area.height / 4);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
}

TEST_F(PanelClicks, OnAboutOpenAWindowThatSaysWhatTheProgramIs) {
  startWithTray("audacious");
  clickIcon(MousePresser::right);
  ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }));
  const PixelArea area = menu()->area;
  mouse_.click(area.middleX(), area.y + area.height / 4);
  EXPECT_TRUE(waitUntil([this] {
    return std::ranges::any_of(windows_.of(talmo_->process().pid()), [](const auto& window) {
      return window.title.starts_with("About Talmo");
    });
  }));
  EXPECT_TRUE(talmo_->process().isRunning());
}

TEST_F(PanelClicks, OnARowPinThePlayerAndOnThePinnedRowFollowAgain) {
  startWithTray(std::nullopt);
  openPanel();
  // The first row is where its highlight comes up.
  const std::optional<PixelArea> row = changeBy("Down");
  ASSERT_TRUE(row);
  mouse_.click(row->middleX(), row->middleY());
  ASSERT_TRUE(waitUntil([this] { return !storedSelection().empty(); }));
  const std::string pinned = storedSelection();
  ASSERT_THAT(pinned, AnyOf("audacious", "strawberry"));

  FakePlayerProcess& player = pinned == "audacious" ? player_ : otherPlayer_;
  FakePlayerProcess& other = pinned == "audacious" ? otherPlayer_ : player_;
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player.waitForCommands(1)) << talmo_->log();
  EXPECT_THAT(player.received(), ElementsAre("Next"));
  EXPECT_THAT(other.received(), ElementsAre());

  settledPicture();
  mouse_.click(row->middleX(), row->middleY());
  EXPECT_TRUE(waitForSelection("auto"));
}

TEST_F(PanelClicks, IntoAnotherWindowCloseThePanelAndGoThere) {
  startWithTray("audacious");
  const std::optional<PixelArea> other = windows_.area(windows_.active());
  ASSERT_TRUE(other);
  openPanel();
  mouse_.click(other->middleX(), other->middleY());
  EXPECT_TRUE(waitForNoPanel());
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(PanelClicks, OnTheDesktopCloseThePanel) {
  startWithTray("audacious");
  openPanel();
  const PixelArea screen = windows_.screen();
  mouse_.click(screen.width / 2, screen.bottom() - 5);
  EXPECT_TRUE(waitForNoPanel());
}

TEST_F(PanelClicks, OnTheGearLeaveThePanelOpenWhileItsMenuIs) {
  startWithTray("audacious");
  const PixelArea area = openPanel();
  mouse_.click(area.right() - 28, area.bottom() - 28);
  ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }));
  EXPECT_TRUE(panel());
  keys_.tap("Escape");
  ASSERT_TRUE(waitUntil([this] { return !menu(); }));
  EXPECT_TRUE(panel());
  keys_.tap("Escape");
  EXPECT_TRUE(waitForNoPanel());
}

}  // namespace
}  // namespace talmo::test
