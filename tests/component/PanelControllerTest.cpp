// How the panel opens, what it shows and where, and that it does nothing while it is closed.

#include <chrono>

#include <gmock/gmock.h>

#include "permissions/AutomationPermission.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/PanelTest.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using enum PermissionWarningKind;

}  // namespace

TEST_P(PanelControllerTest, ThereIsNoPanelBeforeItIsOpenedAndOneAfterwards) {
  EXPECT_FALSE(controller().isVisible());
  EXPECT_THAT(machine().panels().panels(), IsEmpty());
  for (int time = 0; time < 3; ++time) {
    open();
    EXPECT_TRUE(model().isPanelOpen.get());
    EXPECT_TRUE(panel().isKey());
    controller().close();
    EXPECT_FALSE(controller().isVisible());
    EXPECT_FALSE(model().isPanelOpen.get());
    EXPECT_EQ(machine().panels().panels().size(), 1U);
  }
  drop();
  EXPECT_THAT(machine().panels().panels(), IsEmpty());
}

TEST_P(PanelControllerTest, OpeningTwiceOrClosingTwiceDoesNothingMore) {
  controller().close();
  EXPECT_THAT(machine().panels().panels(), IsEmpty());
  open();
  const int contents = panel().contentChanges();
  controller().open(item().button());
  EXPECT_EQ(panel().contentChanges(), contents);
  EXPECT_EQ(machine().eventMonitors().localMonitors(), 2U);
  controller().close();
  controller().close();
  EXPECT_FALSE(controller().isVisible());
}

TEST_P(PanelControllerTest, ThePanelHangsBelowItsIconBeforeItIsSeen) {
  open();
  const Size size = SimulatedPanel::idealSize(panel().content());
  const Rect& icon = *screen().buttonFrame;
  EXPECT_EQ(panel().frame(), (Rect{.x = icon.midX() - size.width / 2,
                                   .y = icon.y - 1 - size.height,
                                   .width = size.width,
                                   .height = size.height}));
  EXPECT_THAT(panel().frameChanges(), Not(IsEmpty()));
  for (const SimulatedPanel::FrameChange& change : panel().frameChanges()) {
    EXPECT_FALSE(change.isVisible);
    EXPECT_FALSE(change.isAnimated);
  }
}

TEST_P(PanelControllerTest, AnotherSizeIsTakenFromTheTopInMotion) {
  open();
  const double top = panel().frame().maxY();
  const double height = panel().frame().height;
  const int shadows = panel().shadowInvalidations();
  controller().setPermissionState(false, false, false);
  ASSERT_TRUE(shows({"permission-warning"}));
  EXPECT_EQ(panel().frame().height, height + 20);
  EXPECT_EQ(panel().frame().maxY(), top);
  EXPECT_TRUE(panel().frameChanges().back().isAnimated);
  EXPECT_EQ(panel().shadowInvalidations(), shadows + 1);

  // The same size is no reason to move.
  const std::size_t changes = panel().frameChanges().size();
  controller().setPermissionState(true, false, false);
  ASSERT_TRUE(shows({"permission-warning", "buttons", "relaunch"}));
  controller().setPermissionState(false, false, false);
  ASSERT_TRUE(hides({"permission-warning", "buttons", "relaunch"}));
  EXPECT_EQ(panel().frameChanges().back().frame.height, height + 20);
  EXPECT_EQ(panel().frameChanges().size(), changes + 2);
}

TEST_P(PanelControllerTest, ThePanelIsNoHigherThanItsScreen) {
  screen().visibleFrame = {.x = 0, .y = 826, .width = 1440, .height = 50};
  open();
  EXPECT_EQ(panel().frame().height, 50);
  EXPECT_EQ(panel().frame().y, 826);
}

TEST_P(PanelControllerTest, AnotherScreenGeometryMovesAnOpenPanelOnly) {
  open();
  const Size size{.width = panel().frame().width, .height = panel().frame().height};
  const int shadows = panel().shadowInvalidations();
  screen().buttonFrame = Rect{.x = 600, .y = 576, .width = 28, .height = 24};
  screen().visibleFrame = {.x = 0, .y = 0, .width = 800, .height = 576};
  machine().notifications().post("NSApplicationDidChangeScreenParametersNotification");
  const Rect moved{.x = 614 - size.width / 2,
                   .y = 575 - size.height,
                   .width = size.width,
                   .height = size.height};
  ASSERT_TRUE(runUntil([&] { return panel().frame() == moved; }));
  EXPECT_FALSE(panel().frameChanges().back().isAnimated);
  EXPECT_EQ(panel().shadowInvalidations(), shadows + 1);

  controller().close();
  const std::size_t changes = panel().frameChanges().size();
  machine().notifications().post("NSApplicationDidChangeScreenParametersNotification");
  render();
  EXPECT_EQ(panel().frameChanges().size(), changes);
}

TEST_P(PanelControllerTest, WithoutAStatusBarThePanelIsInTheRightUpperCorner) {
  screen().buttonFrame.reset();
  open();
  EXPECT_EQ(panel().frame().maxX(), 1440);
  EXPECT_EQ(panel().frame().maxY(), 875);
}

TEST_P(PanelControllerTest, TheWarningFollowsTheTable) {
  struct Case {
    bool trusted, tapRunning, trustMayBeStale;
    PermissionWarningKind expected;
  };
  EXPECT_EQ(controller().permissionWarningForTesting(), none);
  for (const Case& one :
       {Case{true, true, false, none}, Case{true, true, true, none},
        Case{true, false, false, needsReopen}, Case{true, false, true, needsReopen},
        Case{false, true, true, mayNeedReopen}, Case{false, false, true, mayNeedReopen},
        Case{false, true, false, needsGrant}, Case{false, false, false, needsGrant}}) {
    controller().setPermissionState(one.trusted, one.tapRunning, one.trustMayBeStale);
    EXPECT_EQ(controller().permissionWarningForTesting(), one.expected);
  }
}

TEST_P(PanelControllerTest, AnyChangeIsRenderedWhileOpen) {
  openWith({spotify});
  controller().setSelection("spotify");
  render();
  EXPECT_TRUE(part(panel().content(), {"players", "spotify"})->isOn);
  controller().setSelection(std::nullopt);
  render();
  EXPECT_EQ(texts(*part(panel().content(), {"footer", "texts"})).front(),
            "Media keys: macOS default");
  controller().setSelection("auto");
  render();
  EXPECT_EQ(texts(*part(panel().content(), {"footer", "texts"})).front(),
            "Your keys follow whatever you play");
}

TEST_P(PanelControllerTest, SeveralChangesAreOneRendering) {
  openWith({spotify, music});
  render();
  const int contents = panel().contentChanges();
  controller().setSelection("spotify");
  controller().setSelection("music");
  controller().setPermissionState(false, false, false);
  EXPECT_EQ(panel().contentChanges(), contents) << "not before the values are there";
  ASSERT_TRUE(shows({"permission-warning"}));
  EXPECT_EQ(panel().contentChanges(), contents + 1);
  EXPECT_TRUE(part(panel().content(), {"players", "music"})->isOn);
}

TEST_P(PanelControllerTest, AClosedPanelIsNotRendered) {
  openWith({spotify});
  controller().setPermissionState(false, false, false);
  // The rendering was asked for while it was open.
  controller().close();
  const int contents = panel().contentChanges();
  controller().setSelection("spotify");
  render();
  EXPECT_EQ(panel().contentChanges(), contents);

  open();
  EXPECT_NE(part(panel().content(), {"permission-warning"}), nullptr);
  EXPECT_TRUE(part(panel().content(), {"players", "spotify"})->isOn) << "the list of last time";
}

TEST_P(PanelControllerTest, PlayersAreDetectedEachTimeItOpens) {
  openWith({spotify});
  ASSERT_TRUE(lists({"spotify"}));
  controller().close();
  machine().applications().install({vlc, "VLC"});
  machine().applications().uninstall(spotify);
  open();
  ASSERT_TRUE(lists({"vlc"}));
}

TEST_P(PanelControllerTest, TheHighlightStartsAnewEachTimeItOpens) {
  openWith({spotify, music});
  panel().press(125);
  EXPECT_EQ(model().keyboardHighlightedRowID.get(), "spotify");
  controller().close();
  open();
  EXPECT_EQ(model().keyboardHighlightedRowID.get(), std::nullopt);
}

TEST_P(PanelControllerTest, WhatPlaysIsShownAndFollowed) {
  machine().applications().install({vlc, "VLC"});
  machine().applications().launch(vlc);
  controller().nowPlaying().setTargetProvider([] { return TargetAppRegistry::app("vlc"); });
  open();
  const auto tell = [this](const std::string& title, bool isPlaying) {
    machine().childProcesses().write(
        "stream",
        R"({"payload":{"bundleIdentifier":"org.videolan.vlc","artist":"Artist","playing":)" +
            std::string(isPlaying ? "true" : "false") + R"(,"title":")" + title + "\"}}\n");
  };
  const auto card = [this] { return texts(*part(panel().content(), {"now-playing"})); };
  tell("Song", true);
  ASSERT_TRUE(runUntil([&] { return card().front() == "Song"; }));
  EXPECT_THAT(card(), ElementsAre("Song", "Artist", "Playing"));
  EXPECT_EQ(part(panel().content(), {"now-playing", "icon"})->kind, ViewKind::picture);
  tell("Song", false);
  ASSERT_TRUE(hides({"now-playing", "texts", "chip"}));
  EXPECT_THAT(card(), ElementsAre("Song", "Artist"));
}

TEST_P(PanelControllerTest, ThePlayerThatSoundsHasMovingBars) {
  openWith({spotify, vlc});
  const auto sound = machine().audioObjects().add({.bundleID = vlc});
  ASSERT_TRUE(shows({"players", "vlc", "equalizer"}));
  EXPECT_EQ(part(panel().content(), {"players", "spotify", "equalizer"}), nullptr);
  machine().audioObjects().remove(sound);
  EXPECT_TRUE(hides({"players", "vlc", "equalizer"}));
}

TEST_P(PanelControllerTest, WebPlayersAppearWithTheirTabs) {
  browsers().launch(safari, "Safari");
  openWith({spotify});
  ASSERT_TRUE(lists({"spotify"}));
  browsers().setTabs(safari, {{watchPage, "Song"}});
  ASSERT_TRUE(lists({"spotify", "youtube-web"}));
  EXPECT_THAT(texts(*part(panel().content(), {"players", "youtube-web"})),
              ElementsAre("YouTube", "Playing in Safari"));
}

TEST_P(PanelControllerTest, EveryOpeningAsksForConsentAfresh) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  controller().setSelection("spotify");
  // Whoever asks before the answer is there shares the question.
  const auto isAnswered = [this](int time) {
    return runUntil(
        [&] { return queries(spotify) == time && AutomationPermission::cachedStatus(spotify); });
  };
  ASSERT_TRUE(isAnswered(1));
  for (int time = 2; time <= 4; ++time) {
    open();
    ASSERT_TRUE(isAnswered(time));
    controller().close();
  }
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
}

TEST_P(PanelControllerTest, EndsWithoutAWordWhateverIsUnderWay) {
  browsers().launch(safari, "Safari");
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  controller().setSelection("spotify");
  open();
  controller().setPermissionState(false, false, false);
  machine().workspaceNotifications().post("NSWorkspaceDidActivateApplicationNotification");
  drop();
  ASSERT_TRUE(world().runMainQueue());
  // Everything that was asked for has been answered by then, and nothing is left to hear it.
  const auto other = PanelController::make();
  other->setSelection("spotify");
  bool isAnswered = false;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus) { isAnswered = true; });
  EXPECT_TRUE(runUntil([&] { return isAnswered; }));
}

}  // namespace talmo::test
