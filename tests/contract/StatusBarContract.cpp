#include "tests/contract/StatusBarContract.h"

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using EventType = InterfaceEvent::Type;

constexpr std::uint64_t leftDownAndRightUp = 0x12;

}  // namespace

StatusBarContract::StatusBarContract()
    : item_(world_->statusBar().makeStatusItem(StatusBar::variableLength)) {
  item_->setImage({.kind = StatusImage::Kind::asset,
                   .name = "MenuBarIcon",
                   .isTemplate = true,
                   .accessibilityDescription = "Talmo"});
  item_->setAction(leftDownAndRightUp,
                   [this] { events_.push_back(world_->application().currentEvent()); });
}

StatusBarContract::~StatusBarContract() = default;

void StatusBarContract::dropMenuDown() {
  Menu menu;
  menu.items = {{.title = "One", .action = [this] { menuCalls_.emplace_back("one"); }},
                {},
                {.title = "Two", .action = [this] { menuCalls_.emplace_back("two"); }}};
  menu.didClose = [this] { menuCalls_.emplace_back("closed"); };
  item_->setMenu(menu);
  // As the program does it: while a click is being handled.
  world_->dispatch().mainQueue().async([this] { item_->performClick(); });
}

TEST_P(StatusBarContract, ALeftClickIsAPressOnTheButton) {
  world().leftClick();
  ASSERT_TRUE(runUntilEvents(1));
  ASSERT_THAT(events(), SizeIs(1));
  ASSERT_TRUE(events()[0].has_value());
  EXPECT_EQ(events()[0]->type, EventType::leftMouseDown);
  EXPECT_EQ(events()[0]->window, item().button()->window());
  EXPECT_EQ(world().application().currentEvent(), std::nullopt);
}

TEST_P(StatusBarContract, ARightClickIsARelease) {
  world().rightClick();
  ASSERT_TRUE(runUntilEvents(1));
  world().leftClick();
  ASSERT_TRUE(runUntilEvents(2));
  ASSERT_THAT(events(), SizeIs(2));
  EXPECT_EQ(events()[0]->type, EventType::rightMouseUp);
  EXPECT_EQ(events()[1]->type, EventType::leftMouseDown);
}

TEST_P(StatusBarContract, AMenuThatWasChosenFromClosesFirst) {
  dropMenuDown();
  world().chooseFromMenu("Two");
  ASSERT_TRUE(runUntil([&] { return menuCalls().size() == 2; }));
  EXPECT_THAT(menuCalls(), ElementsAre("closed", "two"));
  EXPECT_THAT(events(), IsEmpty());
}

TEST_P(StatusBarContract, AMenuThatIsDismissedOnlyCloses) {
  dropMenuDown();
  world().dismissMenu();
  ASSERT_TRUE(runUntil([&] { return !menuCalls().empty(); }));
  item().setMenu(std::nullopt);
  // The next click is the action's again, and nothing was chosen.
  world().leftClick();
  ASSERT_TRUE(runUntilEvents(1));
  EXPECT_THAT(menuCalls(), ElementsAre("closed"));
}

TEST_P(StatusBarContract, TheButtonIsSomewhereOnAScreen) {
  ASSERT_TRUE(runUntil([&] { return item().button()->windowFrame().has_value(); }));
  const Rect frame = *item().button()->windowFrame();
  EXPECT_GT(frame.width, 0);
  EXPECT_GT(frame.height, 0);
  const Rect visible = item().button()->visibleFrame();
  EXPECT_GT(visible.width, frame.width);
  EXPECT_GT(visible.height, frame.height);
  EXPECT_NE(item().button()->window(), 0U);
  EXPECT_EQ(item().button(), item().button());
}

}  // namespace talmo::test
