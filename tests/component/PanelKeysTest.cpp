// What the keys and clicks do while the panel is open.

#include <chrono>

#include <gmock/gmock.h>

#include "tests/component/PanelTest.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using EventType = InterfaceEvent::Type;

constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t tab = 48;
constexpr std::uint16_t space = 49;
constexpr std::uint16_t escape = 53;
constexpr std::uint16_t keypadEnter = 76;
constexpr std::uint16_t downArrow = 125;
constexpr std::uint16_t upArrow = 126;
constexpr std::uint16_t letterA = 0;

constexpr std::uint64_t modifiers[] = {InterfaceEvent::command, InterfaceEvent::option,
                                       InterfaceEvent::control, InterfaceEvent::shift};

}  // namespace

TEST_P(PanelKeysTest, TheArrowsMoveTheHighlightAroundTheRows) {
  openWith({spotify, music, vlc});
  const auto highlight = [this] { return model().keyboardHighlightedRowID.get(); };
  EXPECT_EQ(highlight(), std::nullopt);
  for (const char* id : {"spotify", "music", "vlc", "spotify"}) {
    EXPECT_FALSE(panel().press(downArrow));
    EXPECT_EQ(highlight(), id);
  }
  for (const char* id : {"vlc", "music"}) {
    EXPECT_FALSE(panel().press(upArrow));
    EXPECT_EQ(highlight(), id);
  }
  render();
  EXPECT_TRUE(part(panel().content(), {"players", "music"})->isHighlighted);
  EXPECT_FALSE(part(panel().content(), {"players", "vlc"})->isHighlighted);
  EXPECT_THAT(selections(), IsEmpty());
}

TEST_P(PanelKeysTest, ReturnSpaceAndEnterPinTheHighlightedRow) {
  openWith({spotify, music});
  for (const std::uint16_t key : {returnKey, space, keypadEnter}) {
    controller().setSelection("auto");
    EXPECT_FALSE(panel().press(downArrow));
    EXPECT_FALSE(panel().press(key));
  }
  EXPECT_THAT(selections(), ElementsAre("spotify", "music", "spotify"));
  EXPECT_EQ(model().selectedTargetID.get(), "spotify");
}

TEST_P(PanelKeysTest, OnThePinnedRowTheyUnpin) {
  openWith({spotify});
  controller().setSelection("spotify");
  panel().press(downArrow);
  for (const std::uint16_t key : {returnKey, space, keypadEnter}) {
    EXPECT_FALSE(panel().press(key));
    EXPECT_EQ(model().selectedTargetID.get(), std::nullopt);
    controller().setSelection("spotify");
  }
  EXPECT_THAT(selections(), ElementsAre(std::nullopt, std::nullopt, std::nullopt));
}

TEST_P(PanelKeysTest, WithoutAHighlightTheyAreSwallowedAndDoNothing) {
  openWith({spotify});
  controller().setSelection("spotify");
  for (const std::uint16_t key : {returnKey, space, keypadEnter}) EXPECT_FALSE(panel().press(key));
  EXPECT_THAT(selections(), IsEmpty());
  EXPECT_EQ(model().selectedTargetID.get(), "spotify");
}

TEST_P(PanelKeysTest, TabIsSwallowedWhateverIsHeld) {
  openWith({spotify});
  EXPECT_FALSE(panel().press(tab));
  for (const std::uint64_t modifier : modifiers) EXPECT_FALSE(panel().press(tab, modifier));
  EXPECT_EQ(model().keyboardHighlightedRowID.get(), std::nullopt);
}

TEST_P(PanelKeysTest, WithAModifierEveryOtherKeyPasses) {
  openWith({spotify, music});
  panel().press(downArrow);
  for (const std::uint64_t modifier : modifiers) {
    for (const std::uint16_t key : {returnKey, space, keypadEnter, upArrow, downArrow, letterA}) {
      EXPECT_TRUE(panel().press(key, modifier)) << key;
      EXPECT_TRUE(panel().press(key, modifier | InterfaceEvent::command)) << key;
    }
  }
  EXPECT_EQ(model().keyboardHighlightedRowID.get(), "spotify");
  EXPECT_THAT(selections(), IsEmpty());
}

TEST_P(PanelKeysTest, AnyOtherKeyPasses) {
  openWith({spotify});
  for (const int code : {0, 12, 35, 37, 47, 50, 75, 77, 123, 124, 127}) {
    const auto key = static_cast<std::uint16_t>(code);
    EXPECT_TRUE(panel().press(key)) << key;
  }
  EXPECT_TRUE(controller().isVisible());
}

TEST_P(PanelKeysTest, EscapePassesAndClosesThePanel) {
  openWith({spotify});
  EXPECT_TRUE(panel().press(escape));
  EXPECT_FALSE(controller().isVisible());
}

TEST_P(PanelKeysTest, AClickInAnotherApplicationClosesThePanel) {
  for (const EventType type : {EventType::leftMouseDown, EventType::rightMouseDown}) {
    open();
    clickElsewhere(type);
    EXPECT_FALSE(controller().isVisible());
  }
  open();
  clickElsewhere(EventType::rightMouseUp);
  clickElsewhere(EventType::keyDown);
  EXPECT_TRUE(controller().isVisible());
}

TEST_P(PanelKeysTest, AClickInAnotherOwnWindowClosesThePanelAndGetsThere) {
  const WindowIdentifier other = machine().application().makeWindow();
  for (const EventType type : {EventType::leftMouseDown, EventType::rightMouseDown}) {
    open();
    EXPECT_TRUE(clickWindow(other, type));
    EXPECT_FALSE(controller().isVisible());
  }
}

TEST_P(PanelKeysTest, AClickInThePanelOrOnItsIconLeavesItToThem) {
  open();
  for (const EventType type : {EventType::leftMouseDown, EventType::rightMouseDown}) {
    EXPECT_TRUE(clickWindow(panel().window(), type));
    EXPECT_TRUE(clickWindow(item().button()->window(), type));
  }
  EXPECT_TRUE(controller().isVisible());
}

TEST_P(PanelKeysTest, ASecondClickOnTheIconClosesItOnce) {
  item().leftClick();
  EXPECT_TRUE(controller().isVisible());
  item().leftClick();
  EXPECT_FALSE(controller().isVisible());
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_FALSE(controller().isVisible());
  item().leftClick();
  EXPECT_TRUE(controller().isVisible());
}

TEST_P(PanelKeysTest, AClosedPanelListensToNothing) {
  const auto monitors = [this] {
    return machine().eventMonitors().localMonitors() + machine().eventMonitors().globalMonitors();
  };
  EXPECT_EQ(monitors(), 0U);
  open();
  EXPECT_EQ(machine().eventMonitors().localMonitors(), 2U);
  EXPECT_EQ(machine().eventMonitors().globalMonitors(), 1U);
  panel().press(escape);
  EXPECT_EQ(monitors(), 0U);
  open();
  drop();
  EXPECT_EQ(monitors(), 0U);
}

TEST_P(PanelKeysTest, AnotherWindowThatTakesTheKeysClosesThePanel) {
  open();
  panel().resignKey();
  EXPECT_FALSE(controller().isVisible());
  open();
  EXPECT_TRUE(panel().isKey());
}

TEST_P(PanelKeysTest, AnotherDesktopClosesThePanel) {
  open();
  machine().workspaceNotifications().post("NSWorkspaceActiveSpaceDidChangeNotification");
  EXPECT_TRUE(runUntil([&] { return !controller().isVisible(); }));
}

TEST_P(PanelKeysTest, AClickOnARowPinsItsPlayer) {
  openWith({spotify, music});
  click({"players", "music"});
  EXPECT_EQ(model().selectedTargetID.get(), "music");
  EXPECT_TRUE(controller().isVisible());
  render();
  EXPECT_TRUE(part(panel().content(), {"players", "music"})->isOn);
  EXPECT_EQ(texts(*part(panel().content(), {"footer", "texts"})).front(),
            "Your keys go to Apple Music");

  click({"players", "music"});
  EXPECT_EQ(model().selectedTargetID.get(), std::nullopt);
  EXPECT_THAT(selections(), ElementsAre("music", std::nullopt));
  render();
  EXPECT_EQ(texts(*part(panel().content(), {"footer", "texts"})).front(),
            "Your keys follow whatever you play");
}

TEST_P(PanelKeysTest, AChoiceIsFeltWhenItChangesSomething) {
  openWith({spotify, music});
  click({"players", "music"});
  EXPECT_THAT(machine().application().hapticFeedback(), ElementsAre(1));
  controller().commitSelection("music");
  EXPECT_THAT(machine().application().hapticFeedback(), ElementsAre(1));
  controller().commitSelection("spotify");
  controller().commitSelection(std::nullopt);
  controller().commitSelection(std::nullopt);
  EXPECT_THAT(machine().application().hapticFeedback(), ElementsAre(1, 1, 1));
  // The owner hears of each.
  EXPECT_THAT(selections(), ElementsAre("music", "music", "spotify", std::nullopt, std::nullopt));
}

TEST_P(PanelKeysTest, TheOwnerMayAnswerAChoiceWithASelection) {
  openWith({spotify});
  controller().setOnSelectTarget([this](const Selection&) {
    EXPECT_EQ(model().selectedTargetID.get(), "spotify");
    controller().setSelection("music");
  });
  controller().commitSelection("spotify");
  EXPECT_EQ(model().selectedTargetID.get(), "music");
  controller().setOnSelectTarget({});
  controller().commitSelection("spotify");
  EXPECT_EQ(model().selectedTargetID.get(), "spotify");
}

}  // namespace talmo::test
