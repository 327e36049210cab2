#include "tests/component/AppCoordinatorTest.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "app/Preferences.h"
#include "platform/KeyboardEvent.h"
#include "tests/component/SimulatedBrowsers.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Manner = SimulatedApplications::Manner;

constexpr std::int32_t playPause = 16;
constexpr std::int32_t next = 17;
constexpr std::int32_t previous = 18;
constexpr std::int32_t fast = 19;
constexpr std::int32_t rewind = 20;

TEST_P(AppCoordinatorTest, EveryKeyReachesTheFixedPlayerAsItsCommand) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  const auto coordinator = started("spotify");
  EXPECT_EQ(coordinator->currentTargetID(), "spotify");

  for (const std::int32_t key : {playPause, next, previous, fast, rewind}) press(key);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 5; }));
  EXPECT_THAT(machine().applications().commands(spotify),
              ElementsAre("playpause", "nextTrack", "previousTrack", "nextTrack", "previousTrack"));
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
  EXPECT_THAT(machine().log().messages("coordinator"),
              ElementsAre("Accessibility permission at launch: true", "Event tap running",
                          "Routing media keys to Spotify", "media key: playPause down",
                          "media key: next down", "media key: previous down",
                          "media key: fast down", "media key: rewind down"));
}

TEST_P(AppCoordinatorTest, AKeyStrokePlayerGetsItsStrokes) {
  machine().applications().install({vlc, "VLC"});
  const ProcessIdentifier process = machine().applications().launch(vlc);
  const auto coordinator = started("vlc");

  press(next);

  ASSERT_TRUE(
      runUntil([&] { return machine().applications().keyboardEvents(process).size() == 2; }));
  EXPECT_THAT(machine().applications().keyboardEvents(process),
              ElementsAre(KeyboardEvent{124, true, 0x100000}, KeyboardEvent{124, false, 0x100000}));
}

TEST_P(AppCoordinatorTest, AWebPlayerGetsEveryKeyInItsTab) {
  constexpr const char* safari = "com.apple.Safari";
  SimulatedBrowsers browsers(machine());
  browsers.launch(safari, "Safari");
  browsers.setTabs(safari, {{"https://www.youtube.com/watch?v=1", "Song - YouTube"}});
  const auto coordinator = started("youtube-web");
  EXPECT_EQ(coordinator->currentTargetID(), "youtube-web");

  for (const std::int32_t key : {playPause, next, previous, fast, rewind}) press(key);

  const auto scripts = [&] { return browsers.scripts(SimulatedBrowsers::Kind::javaScript); };
  ASSERT_TRUE(runUntil([&] { return scripts().size() == 5; }));
  EXPECT_THAT(scripts(), ElementsAre(HasSubstr(".ytp-play-button"), HasSubstr(".ytp-next-button"),
                                     HasSubstr(".ytp-prev-button"), HasSubstr(".ytp-next-button"),
                                     HasSubstr(".ytp-prev-button")));
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
  EXPECT_THAT(machine().log().messages("coordinator"), Contains("Routing media keys to YouTube"));
}

TEST_P(AppCoordinatorTest, AWebPlayerWithoutATabIsOpenedByPlayPauseOnly) {
  SimulatedBrowsers browsers(machine());
  const auto coordinator = started("youtube-web");

  press(next);
  press(playPause);

  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedURLs().empty(); }));
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre("https://www.youtube.com"));
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
}

TEST_P(AppCoordinatorTest, AStoredSelectionOfNoneBehavesAsAuto) {
  const auto coordinator = started("none");

  EXPECT_EQ(coordinator->currentTargetID(), "auto");
  press(next);
  EXPECT_EQ(machine().eventTap().consumed().size(), 1U);
  EXPECT_THAT(machine().log().messages("coordinator"),
              Contains("Routing media keys automatically (follows what is playing)"));
}

TEST_P(AppCoordinatorTest, AnUnknownSelectionLetsTheKeysPass) {
  const auto coordinator = started("winamp");

  EXPECT_EQ(coordinator->currentTargetID(), std::nullopt);
  press(playPause);
  press(playPause, false);
  EXPECT_EQ(machine().eventTap().passed().size(), 2U);
  EXPECT_THAT(machine().eventTap().consumed(), IsEmpty());
  EXPECT_THAT(machine().log().messages("coordinator"),
              ElementsAre("Accessibility permission at launch: true", "Event tap running",
                          "No target selected; media keys pass through"));
}

TEST_P(AppCoordinatorTest, ReleasesAndRepeatsAreConsumedButCauseNoCommand) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  const auto coordinator = started("spotify");

  press(next);
  for (int repeat = 0; repeat < 10; ++repeat) press(next, true, true);
  press(next, false);
  press(previous);

  // The command of the later press is there, so nothing of the earlier events is still to come.
  ASSERT_TRUE(runUntil([&] { return commands(spotify) >= 2; }));
  EXPECT_THAT(machine().applications().commands(spotify),
              ElementsAre("nextTrack", "previousTrack"));
  EXPECT_EQ(machine().eventTap().consumed().size(), 13U);
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
}

TEST_P(AppCoordinatorTest, OnlyPlayPauseLaunchesAFixedPlayerThatDoesNotRun) {
  machine().applications().install({spotify, "Spotify"});
  const auto coordinator = started("spotify");

  press(next);
  press(previous);
  press(playPause);

  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedApplications().empty(); }));
  EXPECT_THAT(machine().workspace().openedApplications(), ElementsAre(urlOf(spotify)));
  EXPECT_THAT(machine().applications().commands(spotify), IsEmpty());
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
  EXPECT_THAT(machine().log().messages("coordinator"), Contains("Launching Spotify"));
}

TEST_P(AppCoordinatorTest, AFreshInstallIsInAutoModeAndConsumesBeforeAnythingPlays) {
  const auto coordinator = started(std::nullopt);

  EXPECT_EQ(coordinator->currentTargetID(), "auto");
  for (const std::int32_t key : {playPause, next, previous, fast, rewind}) {
    press(key);
    press(key, false);
  }
  EXPECT_EQ(machine().eventTap().consumed().size(), 10U);
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());
}

TEST_P(AppCoordinatorTest, AChangedSelectionTakesEffectOnTheNextKey) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  const auto coordinator = started("winamp");
  press(playPause);
  ASSERT_EQ(machine().eventTap().passed().size(), 1U);

  Preferences::setSelectedTargetAppID("spotify");
  coordinator->updateActiveController();
  press(playPause);
  ASSERT_TRUE(runUntil([&] { return commands(spotify) == 1; }));

  Preferences::setSelectedTargetAppID("gone");
  coordinator->updateActiveController();
  press(playPause);
  EXPECT_EQ(machine().eventTap().passed().size(), 2U);
  EXPECT_EQ(commands(spotify), 1U);
}

TEST_P(AppCoordinatorTest, CommandsArriveInTheOrderOfThePresses) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  const auto coordinator = started("spotify");

  std::vector<std::string> expected;
  for (int round = 0; round < 50; ++round) {
    machine().eventTap().postMediaKey(round % 3 == 0 ? next : previous, true);
    expected.emplace_back(round % 3 == 0 ? "nextTrack" : "previousTrack");
  }

  ASSERT_TRUE(runUntil([&] { return commands(spotify) == expected.size(); }));
  EXPECT_EQ(machine().applications().commands(spotify), expected);
}

TEST_P(AppCoordinatorTest, APlayerThatNeverAnswersDoesNotKeepTheNextKeyFromArriving) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  machine().applications().setManner(spotify, Manner::neverAnswers);
  const auto coordinator = started("spotify");

  const Uptime before = machine().dispatch().uptime();
  press(playPause);
  ASSERT_TRUE(runUntil([&] { return machine().appleEvents().timeouts().size() == 1; }));
  press(next);
  const Duration untilConsumed = machine().dispatch().uptime() - before;
  machine().applications().setManner(spotify, Manner::answers);

  ASSERT_TRUE(runUntil([&] { return commands(spotify) > 0; }));
  EXPECT_THAT(machine().applications().commands(spotify), ElementsAre("nextTrack"));
  // Both keys were consumed while the command queue waited.
  EXPECT_LT(untilConsumed, 2s);
}

TEST_P(AppCoordinatorTest, AFailedTapIsLoggedAndTheRoutingStateIsSetAllTheSame) {
  machine().eventTap().setTrusted(false);
  const auto coordinator = started("spotify");

  EXPECT_FALSE(coordinator->tap().isRunning());
  EXPECT_EQ(coordinator->currentTargetID(), "spotify");
  EXPECT_THAT(machine().log().messages(LogLevel::error),
              ElementsAre("Event tap creation failed; treating as missing permission"));
}

TEST_P(AppCoordinatorTest, WithoutTrustNoTapIsAskedForAndTheRoutingStateIsSet) {
  machine().accessibility().setTrusted(false);
  const auto coordinator = started("spotify");

  EXPECT_FALSE(coordinator->tap().isRunning());
  EXPECT_THAT(machine().eventTap().requests(), IsEmpty());
  EXPECT_EQ(coordinator->currentTargetID(), "spotify");
  EXPECT_THAT(
      machine().log().messages("coordinator"),
      ElementsAre("Accessibility permission at launch: false", "Routing media keys to Spotify"));
  EXPECT_EQ(machine().accessibility().prompts(), 1);
}

TEST_P(AppCoordinatorTest, TheTapFollowsTheTrust) {
  machine().accessibility().setTrusted(false);
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  const auto coordinator = started("spotify");
  press(next);
  EXPECT_EQ(machine().eventTap().passed().size(), 1U);

  for (std::size_t round = 1; round <= 3; ++round) {
    setTrusted(true);
    ASSERT_TRUE(runUntil([&] { return coordinator->tap().isRunning(); }));
    press(next);
    ASSERT_TRUE(runUntil([&] { return commands(spotify) == round; }));

    setTrusted(false);
    ASSERT_TRUE(runUntil([&] { return !coordinator->tap().isRunning(); }));
    ASSERT_TRUE(runUntil([&] { return machine().eventTap().enabledTaps() == 0; }));
    press(next);
    EXPECT_EQ(machine().eventTap().passed().size(), 1 + round);
    EXPECT_EQ(commands(spotify), round);
  }
  EXPECT_THAT(changes(), ElementsAre("true", "false", "true", "false", "true", "false"));
}

TEST_P(AppCoordinatorTest, ATapThatFailsIsTriedAgainWhenTrustComesBack) {
  machine().eventTap().setTrusted(false);
  const auto coordinator = started("spotify");
  ASSERT_FALSE(coordinator->tap().isRunning());
  machine().eventTap().setTrusted(true);
  setTrusted(false);
  ASSERT_TRUE(runUntil([&] { return !coordinator->permission().isTrusted(); }));
  EXPECT_EQ(machine().eventTap().requests().size(), 1U);

  setTrusted(true);
  EXPECT_TRUE(runUntil([&] { return coordinator->tap().isRunning(); }));
  EXPECT_EQ(machine().eventTap().requests().size(), 2U);
}

TEST_P(AppCoordinatorTest, ATrustThatChangesForACoordinatorThatIsGoneStartsNothing) {
  machine().accessibility().setTrusted(false);
  auto coordinator = started("spotify");
  const std::weak_ptr<AppCoordinator> weak = coordinator;
  setTrusted(true);
  // The notice has come, and what follows from it has not.
  ASSERT_TRUE(world().runMainQueue());
  coordinator.reset();
  ASSERT_TRUE(weak.expired());

  bool isLater = false;
  machine().dispatch().mainQueue().asyncAfter(500ms, [&] { isLater = true; });
  ASSERT_TRUE(runUntil([&] { return isLater; }));
  EXPECT_THAT(machine().eventTap().requests(), IsEmpty());
}

TEST_P(AppCoordinatorTest, ACoordinatorThatGoesWhileKeysAreDecidedLeavesNothingBehind) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  for (int round = 0; round < 30; ++round) {
    auto coordinator = started("spotify");
    const std::weak_ptr<AppCoordinator> weak = coordinator;
    for (int key = 0; key < 20; ++key) machine().eventTap().postMediaKey(next, true);

    coordinator.reset();

    ASSERT_TRUE(runUntil([&] { return weak.expired(); }));
    ASSERT_TRUE(runUntil([&] { return machine().eventTap().enabledTaps() == 0; }));
  }
}

}  // namespace
}  // namespace talmo::test
