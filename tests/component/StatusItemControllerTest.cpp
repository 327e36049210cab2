#include "tests/component/StatusItemControllerTest.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto asset = StatusImage::Kind::asset;
constexpr auto symbol = StatusImage::Kind::symbol;

const StatusImage usual{
    .kind = asset, .name = "MenuBarIcon", .isTemplate = true, .accessibilityDescription = "Talmo"};
const StatusImage warning{.kind = symbol,
                          .name = "exclamationmark.triangle",
                          .isTemplate = false,
                          .accessibilityDescription = "Talmo"};

}  // namespace

TEST_P(StatusItemControllerTest, AnItemAsWideAsItsIconStandsInTheBar) {
  EXPECT_EQ(machine().statusBar().items().size(), 1U);
  EXPECT_EQ(item().length(), -1);
  EXPECT_EQ(item().image(), usual);
  EXPECT_EQ(item().alpha(), 1.0);
  EXPECT_EQ(controller().button(), item().button());
}

TEST_P(StatusItemControllerTest, AWarningTakesTheIconsPlaceUntilItIsOver) {
  controller().setPermissionWarning(true);
  EXPECT_EQ(item().image(), warning);
  EXPECT_EQ(item().alpha(), 1.0);
  controller().setPermissionWarning(false);
  EXPECT_EQ(item().image(), usual);
}

TEST_P(StatusItemControllerTest, TheIconIsDimmedWhileRoutingIsOff) {
  controller().setRoutingOff(true);
  EXPECT_EQ(item().image(), usual);
  EXPECT_EQ(item().alpha(), 0.35);
  controller().setRoutingOff(false);
  EXPECT_EQ(item().alpha(), 1.0);
}

TEST_P(StatusItemControllerTest, AWarningIsDimmedToo) {
  controller().setPermissionWarning(true);
  controller().setRoutingOff(true);
  EXPECT_EQ(item().image(), warning);
  EXPECT_EQ(item().alpha(), 0.35);
  controller().setPermissionWarning(false);
  EXPECT_EQ(item().alpha(), 0.35);
}

TEST_P(StatusItemControllerTest, EachLeftClickIsItsOwners) {
  item().leftClick();
  item().leftClick();
  EXPECT_EQ(leftClicks(), 2);
  EXPECT_FALSE(item().hasMenu());
  EXPECT_EQ(item().openMenu(), std::nullopt);
}

TEST_P(StatusItemControllerTest, WithoutAnOwnerALeftClickDoesNothing) {
  controller().setOnLeftClick({});
  item().leftClick();
  EXPECT_EQ(leftClicks(), 0);
  EXPECT_FALSE(item().hasMenu());
}

TEST_P(StatusItemControllerTest, ARightClickDropsTheMenuDown) {
  item().rightClick();
  EXPECT_EQ(leftClicks(), 0);
  ASSERT_TRUE(item().openMenu().has_value());
  std::vector<std::string> items;
  for (const MenuItem& one : item().openMenu()->items) {
    items.push_back(one.isSeparator() ? "---" : one.title + " [" + one.keyEquivalent + "]");
    EXPECT_FALSE(one.isChecked);
  }
  EXPECT_THAT(items, ElementsAre("About Talmo []", "---", "Quit Talmo [q]"));
}

TEST_P(StatusItemControllerTest, AfterTheMenuALeftClickIsTheOwnersAgain) {
  for (int round = 1; round <= 3; ++round) {
    item().rightClick();
    ASSERT_TRUE(item().openMenu().has_value());
    item().dismissMenu();
    // Not yet: the menu is in use until it has returned.
    EXPECT_TRUE(item().hasMenu());
    ASSERT_TRUE(world().runMainQueue());
    EXPECT_FALSE(item().hasMenu());
    item().leftClick();
    EXPECT_EQ(leftClicks(), round);
    EXPECT_EQ(item().openMenu(), std::nullopt);
  }
}

TEST_P(StatusItemControllerTest, AboutComesToTheFront) {
  item().rightClick();
  EXPECT_EQ(machine().application().aboutPanels(), 0);
  ASSERT_TRUE(item().choose("About Talmo"));
  EXPECT_EQ(machine().application().activations(), 1);
  EXPECT_EQ(machine().application().aboutPanels(), 1);
  EXPECT_EQ(machine().application().terminations(), 0);
}

TEST_P(StatusItemControllerTest, QuitEndsTheProgram) {
  item().rightClick();
  ASSERT_TRUE(item().choose("Quit Talmo"));
  EXPECT_EQ(machine().application().terminations(), 1);
  EXPECT_EQ(machine().application().aboutPanels(), 0);
}

TEST_P(StatusItemControllerTest, TheItemGoesWithItsController) {
  item().rightClick();
  item().dismissMenu();
  drop();
  EXPECT_THAT(machine().statusBar().items(), IsEmpty());
  // The menu that was to be detached is gone by now.
  EXPECT_TRUE(world().runMainQueue());
}

}  // namespace talmo::test
