// How the coordinator, the status item and the panel work together.

#include "tests/component/PanelWiringTest.h"

#include <string>

#include <gmock/gmock.h>

#include "app/Preferences.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t next = 17;

constexpr const char* usualIcon = "MenuBarIcon";
constexpr const char* warningIcon = "exclamationmark.triangle";

}  // namespace

TEST_P(PanelWiringTest, ALeftClickOpensThePanelAndTheNextClosesIt) {
  start();
  EXPECT_THAT(machine().panels().panels(), IsEmpty());
  item().leftClick();
  EXPECT_TRUE(panel().isVisible());
  item().leftClick();
  EXPECT_FALSE(panel().isVisible());
}

TEST_P(PanelWiringTest, AfterARightClicksMenuALeftClickOpensThePanel) {
  start();
  item().rightClick();
  ASSERT_TRUE(item().openMenu().has_value());
  EXPECT_THAT(machine().panels().panels(), IsEmpty());
  item().dismissMenu();
  ASSERT_TRUE(world().runMainQueue());
  item().leftClick();
  EXPECT_TRUE(panel().isVisible());
  EXPECT_EQ(item().openMenu(), std::nullopt);
}

TEST_P(PanelWiringTest, ThePanelCanBeOpenedWithoutAClick) {
  start();
  coordinator().openPanel();
  EXPECT_TRUE(panel().isVisible());
  coordinator().openPanel();
  EXPECT_TRUE(panel().isVisible());
}

TEST_P(PanelWiringTest, AChosenPlayerIsStoredAndGetsTheNextKey) {
  launch(spotify, "Spotify");
  start();
  EXPECT_EQ(coordinator().currentTargetID(), "auto");
  item().leftClick();
  click({"players", "spotify"});
  EXPECT_EQ(Preferences::selectedTargetAppID(), "spotify");
  EXPECT_EQ(coordinator().currentTargetID(), "spotify");
  EXPECT_TRUE(runUntilFooter("Your keys go to Spotify"));

  press(next);
  ASSERT_TRUE(runUntil([&] { return !machine().applications().commands(spotify).empty(); }));
  EXPECT_THAT(machine().applications().commands(spotify), ElementsAre("nextTrack"));
}

TEST_P(PanelWiringTest, UnpinningStoresAutoAndFollowsAgain) {
  launch(spotify, "Spotify");
  start("spotify");
  item().leftClick();
  click({"players", "spotify"});
  EXPECT_EQ(machine().userDefaults().string("selectedTargetAppID"), "auto");
  EXPECT_EQ(coordinator().currentTargetID(), "auto");
  EXPECT_TRUE(runUntilFooter("Your keys follow whatever you play"));
}

TEST_P(PanelWiringTest, AnUnknownSelectionDimsTheIconAndSaysSo) {
  launch(spotify, "Spotify");
  start("winamp");
  EXPECT_EQ(item().alpha(), 0.35);
  EXPECT_EQ(item().image().name, usualIcon);
  item().leftClick();
  EXPECT_EQ(footer(), "Media keys: macOS default");
  click({"players", "spotify"});
  EXPECT_EQ(item().alpha(), 1.0);
  EXPECT_TRUE(runUntilFooter("Your keys go to Spotify"));
}

TEST_P(PanelWiringTest, AnySelectionThatIsKnownLeavesTheIconBright) {
  for (const char* selection : {"auto", "none", "spotify", "youtube-web"}) {
    start(selection);
    EXPECT_EQ(item().alpha(), 1.0) << selection;
  }
}

TEST_P(PanelWiringTest, WithoutTrustTheIconAndThePanelWarn) {
  machine().accessibility().setTrusted(false);
  start();
  EXPECT_EQ(item().image().name, warningIcon);
  item().leftClick();
  EXPECT_NE(part(panel().content(), {"permission-warning", "buttons", "open-settings"}), nullptr);
  EXPECT_EQ(part(panel().content(), {"permission-warning", "buttons", "relaunch"}), nullptr);

  machine().accessibility().setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return item().image().name == usualIcon; }));
  EXPECT_TRUE(runUntil([&] { return part(panel().content(), {"permission-warning"}) == nullptr; }));
}

TEST_P(PanelWiringTest, AChangeThatTrustDoesNotFollowHintsAtANewStart) {
  machine().accessibility().setTrusted(false);
  start();
  item().leftClick();
  machine().distributedNotifications().post("com.apple.accessibility.api");
  EXPECT_TRUE(shows({"permission-warning", "buttons", "relaunch"}));
  EXPECT_EQ(item().image().name, warningIcon);
}

TEST_P(PanelWiringTest, ATapThatCannotBeMadeIsAMissingPermission) {
  machine().eventTap().setTrusted(false);
  start();
  EXPECT_EQ(item().image().name, warningIcon);
  item().leftClick();
  EXPECT_NE(part(panel().content(), {"permission-warning", "buttons", "relaunch"}), nullptr);
}

TEST_P(PanelWiringTest, TheCardIsAboutThePinnedPlayer) {
  launch(spotify, "Spotify");
  launch(vlc, "VLC");
  start("vlc");
  item().leftClick();
  stream(spotify, "Song");
  ASSERT_TRUE(runUntilCard("VLC"));
  // Another choice is looked at at once.
  click({"players", "spotify"});
  EXPECT_TRUE(runUntilCard("Song"));
}

TEST_P(PanelWiringTest, WhenNothingIsPinnedTheCardFollowsTheSession) {
  launch(spotify, "Spotify");
  launch(vlc, "VLC");
  start();
  item().leftClick();
  stream(vlc, "Film");
  ASSERT_TRUE(runUntilCard("Film"));
  stream(spotify, "Song");
  EXPECT_TRUE(runUntilCard("Song"));
}

TEST_P(PanelWiringTest, WithoutASessionTheCardIsAboutTheLastResolvedPlayerWhileItRuns) {
  const ProcessIdentifier process = launch(vlc, "VLC");
  machine().applications().install({spotify, "Spotify"});
  Preferences::setLastResolvedTargetID("vlc");
  start();
  item().leftClick();
  ASSERT_TRUE(runUntilCard("VLC"));
  machine().applications().quit(process);
  // The default player does not run either.
  EXPECT_TRUE(runUntilCard("Nothing playing"));
  machine().applications().launch(spotify);
  EXPECT_TRUE(runUntilCard("Spotify"));
}

TEST_P(PanelWiringTest, AWebPlayerIsFollowedByItsTab) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Clip - YouTube"}});
  start();
  item().leftClick();
  ASSERT_TRUE(shows({"players", "youtube-web"}));
  stream(safari, "Clip");
  EXPECT_TRUE(runUntilCard("Clip"));
  EXPECT_NE(part(panel().content(), {"now-playing", "icon"}), nullptr);
  EXPECT_EQ(part(panel().content(), {"now-playing", "icon"})->text, "YouTubeIcon");
}

TEST_P(PanelWiringTest, TheMenuQuitsAndTheInterfaceGoesWithTheProgram) {
  start();
  item().leftClick();
  item().rightClick();
  ASSERT_TRUE(item().choose("Quit Talmo"));
  EXPECT_EQ(machine().application().terminations(), 1);
}

}  // namespace talmo::test
