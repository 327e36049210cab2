#include "tests/component/PlayerDetectionTest.h"

#include <chrono>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const Date today{1'700'000'000s};
const Date yesterday = today - 24h;
const Date lastYear = today - 24h * 365;

TEST_P(PlayerDetectionTest, AMachineWithoutSupportedPlayersHasNone) {
  machine().applications().install({"com.example.editor", "Editor"});
  EXPECT_THAT(detected(), IsEmpty());
}

TEST_P(PlayerDetectionTest, OnlyInstalledPlayersAreGiven) {
  install(music);
  machine().applications().launch(spotify);
  EXPECT_THAT(detected(), ElementsAre("music"));
}

TEST_P(PlayerDetectionTest, PlayersThatWereNeverUsedKeepTheOrderOfTheTable) {
  install(vlc);
  install(music);
  install(spotify);
  EXPECT_THAT(detected(), ElementsAre("spotify", "music", "vlc"));
}

TEST_P(PlayerDetectionTest, TheMostRecentlyUsedPlayerIsFirstAndTheUndatedOneLast) {
  install(spotify);
  install(music, lastYear);
  install(vlc, yesterday);
  EXPECT_THAT(detected(), ElementsAre("vlc", "music", "spotify"));
}

TEST_P(PlayerDetectionTest, PlayersThatOnlyThisSystemHasAreDetectedToo) {
  machine().workspace().setLocalPlayers({{"rhythmbox", "Rhythmbox", "org.gnome.Rhythmbox3"}});
  install("org.gnome.Rhythmbox3", yesterday);
  install(vlc, lastYear);
  EXPECT_THAT(detected(), ElementsAre("rhythmbox", "vlc"));
}

TEST_P(PlayerDetectionTest, EachDetectionAsksAfresh) {
  install(spotify, yesterday);
  EXPECT_THAT(detected(), ElementsAre("spotify"));
  install(vlc, today);
  EXPECT_THAT(detected(), ElementsAre("vlc", "spotify"));
  machine().applications().uninstall(vlc);
  install(spotify, today);
  EXPECT_THAT(detected(), ElementsAre("spotify"));
}

TEST_P(PlayerDetectionTest, TheCompletionComesLaterOnTheMainQueue) {
  install(vlc);
  std::optional<bool> wasOnMainThread;
  PlayerDetection::detect(
      [&](const auto&) { wasOnMainThread = platform().dispatch().isMainThread(); });
  EXPECT_EQ(wasOnMainThread, std::nullopt);

  ASSERT_TRUE(runUntil([&] { return wasOnMainThread.has_value(); }));
  EXPECT_TRUE(*wasOnMainThread);
}

TEST_P(PlayerDetectionTest, TheRecordsOfUseAreNotReadOnTheMainThread) {
  install(vlc);
  install(spotify);
  EXPECT_THAT(detected(), ElementsAre("spotify", "vlc"));
  EXPECT_EQ(machine().workspace().lastUseQueries(), (std::vector<bool>{false, false}));
}

TEST_P(PlayerDetectionTest, OverlappingRequestsRunOneAfterTheOtherAndCompleteInTheirOrder) {
  install(vlc);
  machine().workspace().setLastUseDuration(20ms);
  const Uptime start = machine().dispatch().uptime();
  std::vector<int> completed;
  for (int request = 0; request < 4; ++request) {
    PlayerDetection::detect([&, request](const auto& players) {
      EXPECT_THAT(idsOf(players), ElementsAre("vlc"));
      completed.push_back(request);
    });
  }

  ASSERT_TRUE(runUntil([&] { return completed.size() == 4; }));
  EXPECT_THAT(completed, ElementsAre(0, 1, 2, 3));
  // Side by side they would have taken as long as one.
  EXPECT_GE(machine().dispatch().uptime() - start, 80ms);
}

TEST_P(PlayerDetectionTest, AnOlderRequestThatIsSlowCompletesBeforeANewerOneThatIsQuick) {
  install(vlc);
  machine().workspace().setLastUseDuration(100ms);
  std::vector<std::string> completed;
  PlayerDetection::detect([&](const auto&) { completed.emplace_back("slow"); });
  ASSERT_TRUE(runUntil([&] { return !machine().workspace().lastUseQueries().empty(); }));
  machine().workspace().setLastUseDuration(Duration::zero());
  PlayerDetection::detect([&](const auto&) { completed.emplace_back("quick"); });

  ASSERT_TRUE(runUntil([&] { return completed.size() == 2; }));
  EXPECT_THAT(completed, ElementsAre("slow", "quick"));
}

}  // namespace
}  // namespace talmo::test
