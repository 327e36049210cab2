#include "tests/component/AutoRoutingTest.h"

#include <gmock/gmock.h>

#include "app/Preferences.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t playPause = 16;
constexpr std::int32_t next = 17;
constexpr std::int32_t previous = 18;

}  // namespace

TEST_P(AutoRoutingTest, TheOwnerOfTheSessionGetsTheKeyWhicheverPlayerRunsBesides) {
  launchPlayer(vlc, "VLC");
  launchPlayer(spotify, "Spotify");
  Preferences::setLastResolvedTargetID("vlc");
  browsers().setSession(spotify, "Song");
  const auto coordinator = started("auto");

  press(next);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
  EXPECT_THAT(log(), Contains("auto: routing to Spotify (owner=com.spotify.client)"));
  EXPECT_EQ(Preferences::lastResolvedTargetID(), "spotify");
}

TEST_P(AutoRoutingTest, APausedSessionStillDecides) {
  launchPlayer(vlc, "VLC");
  launchPlayer(spotify, "Spotify");
  Preferences::setLastResolvedTargetID("vlc");
  browsers().setGet(Script().write(
      R"({"bundleIdentifier":"com.spotify.client","title":"Song","playing":false})"));
  const auto coordinator = started("auto");

  press(playPause);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
}

TEST_P(AutoRoutingTest, TheApplicationBehindAHelperProcessIsTheOwner) {
  launchPlayer(spotify, "Spotify");
  browsers().setSession("org.example.helper", "Song", spotify);
  const auto coordinator = started("auto");

  press(next);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
  EXPECT_THAT(log(), Contains("auto: routing to Spotify (owner=com.spotify.client)"));
}

TEST_P(AutoRoutingTest, AQuickSecondPressGoesToTheSamePlayerWithoutAnotherLook) {
  launchPlayer(spotify, "Spotify");
  launchPlayer("com.apple.Music", "Music");
  browsers().setSession(spotify, "Song");
  const auto coordinator = started("auto");
  press(next);
  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));

  browsers().setSession("com.apple.Music", "Song");
  press(previous);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 2; }));
  EXPECT_THAT(browsers().asked(), ElementsAre("get"));
  EXPECT_EQ(std::ranges::count(log(), "auto: routing to Spotify (owner=com.spotify.client)"), 1);
}

TEST_P(AutoRoutingTest, ABrowserWithoutKnownTabsIsScannedBeforeItIsDecided) {
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(chrome, {{watchPage, "A long video - YouTube"}});
  launchPlayer(spotify, "Spotify");
  browsers().setSession(chrome, "A long video");
  const auto coordinator = started("auto");

  press(playPause);

  ASSERT_TRUE(runUntil([&] { return webLog().size() == 2; }));
  EXPECT_EQ(webLog().back(), "route=adapter(fast) browser=Chrome target=YouTube");
  EXPECT_THAT(log(), Contains("auto: routing to YouTube (owner=com.google.Chrome)"));
  EXPECT_EQ(Preferences::lastResolvedTargetID(), "youtube-web");
  ASSERT_TRUE(runUntil([&] { return browsers().asked().size() == 4; }));
  EXPECT_THAT(browsers().asked(), ElementsAre("get", "scan com.google.Chrome", "send 2", "get"));
}

TEST_P(AutoRoutingTest, OfTwoPlayerTabsTheOneThatTheTitleSpeaksForGetsTheKey) {
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(chrome, {{watchPage, "A long video - YouTube"},
                              {soundCloudPage, "Stream A Song by An Artist"}});
  browsers().setSession(chrome, "A Song");
  const auto coordinator = started("auto");

  press(next);

  ASSERT_TRUE(runUntilLogged("auto: routing to SoundCloud (owner=com.google.Chrome)"));
  ASSERT_TRUE(runUntil([&] { return webLog().size() == 2; }));
  EXPECT_EQ(webLog().back(), "route=adapter(fast) browser=Chrome target=SoundCloud");
}

TEST_P(AutoRoutingTest, WithoutASessionTheLastPlayerThatStillRunsGetsTheKey) {
  launchPlayer(vlc, "VLC");
  launchPlayer(spotify, "Spotify");
  Preferences::setLastResolvedTargetID("spotify");
  const auto coordinator = started("auto");

  press(next);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
  EXPECT_THAT(log(), Contains("auto: routing to Spotify (owner=none)"));
}

TEST_P(AutoRoutingTest, ATitleThatSpeaksForNoTabFallsBackToTheLastPlayer) {
  browsers().launch(chrome, "Chrome");
  browsers().setTabs(chrome, {{watchPage, "A long video - YouTube"},
                              {soundCloudPage, "Stream A Song by An Artist"}});
  launchPlayer(spotify, "Spotify");
  Preferences::setLastResolvedTargetID("spotify");
  browsers().setSession(chrome, "An Advertisement");
  const auto coordinator = started("auto");

  press(next);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
  EXPECT_THAT(log(), Contains("auto: routing to Spotify (owner=com.google.Chrome)"));
}

TEST_P(AutoRoutingTest, WhenTheLastPlayerHasQuitPlayPauseLaunchesTheFirstInstalledOne) {
  machine().applications().install({vlc, "VLC"});
  machine().applications().install({spotify, "Spotify"});
  Preferences::setLastResolvedTargetID("vlc");
  const auto coordinator = started("auto");

  press(next);
  press(previous);
  press(playPause);

  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedApplications().empty(); }));
  EXPECT_THAT(machine().workspace().openedApplications(), ElementsAre(urlOf(spotify)));
  EXPECT_THAT(log(), Contains("auto: routing to Spotify (owner=none)"));
  EXPECT_EQ(log().back(), "Launching Spotify");
}

TEST_P(AutoRoutingTest, WithNothingInstalledNothingIsResolvedAndNothingHappens) {
  const auto coordinator = started("auto");

  press(next);
  press(playPause);

  ASSERT_TRUE(runUntilLogged("auto: nothing resolved", 2));
  EXPECT_THAT(machine().workspace().openedApplications(), IsEmpty());
  EXPECT_EQ(machine().eventTap().consumed().size(), 2U);
  EXPECT_EQ(Preferences::lastResolvedTargetID(), std::nullopt);
}

TEST_P(AutoRoutingTest, AnAdapterThatHangsCostsItsTimeOutAndTheKeyArrives) {
  launchPlayer(spotify, "Spotify");
  Preferences::setLastResolvedTargetID("spotify");
  browsers().setGet(Script().liveOn());
  const auto coordinator = started("auto");
  const Uptime start = machine().dispatch().uptime();

  press(next);
  press(previous);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 2; }));
  EXPECT_THAT(machine().applications().commands(spotify),
              ElementsAre("nextTrack", "previousTrack"));
  EXPECT_GE(machine().dispatch().uptime() - start, std::chrono::milliseconds(1500));
}

TEST_P(AutoRoutingTest, APinnedPlayerGetsItsKeysWhoeverOwnsTheSession) {
  launchPlayer(spotify, "Spotify");
  launchPlayer("com.apple.Music", "Music");
  browsers().setSession("com.apple.Music", "Song");
  const auto coordinator = started("spotify");

  press(next);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));
  EXPECT_THAT(browsers().asked(), IsEmpty());
  EXPECT_EQ(Preferences::lastResolvedTargetID(), std::nullopt);
}

}  // namespace talmo::test
