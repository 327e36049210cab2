// How auto routing behaves as time passes, to the millisecond.

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "tests/component/SimulatedBrowsers.h"
#include "tests/component/SimulatedWorld.h"
#include "web/WebTabDetection.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Script = SimulatedBrowsers::Script;

constexpr const char* spotify = "com.spotify.client";
constexpr const char* music = "com.apple.Music";
constexpr const char* safari = "com.apple.Safari";

class AutoRoutingTimesTest : public testing::Test {
 protected:
  AutoRoutingTimesTest() {
    for (const char* player : {spotify, music}) {
      machine().applications().install({player, player});
      machine().applications().launch(player);
    }
    machine().userDefaults().setString("selectedTargetAppID", "auto");
    machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
    coordinator_->start();
    world_.time().runUntilIdle();
  }

  SimulatedPlatform& machine() { return world_.machine(); }

  /// Presses "next" and lets it arrive, without time passing.
  void press() {
    machine().eventTap().postMediaKey(17, true);
    world_.time().runUntilIdle();
  }

  std::size_t commands(const char* player) {
    return machine().applications().commands(player).size();
  }

  SimulatedWorld world_;
  SimulatedBrowsers browsers_{world_.machine()};
  const std::shared_ptr<AppCoordinator> coordinator_ = AppCoordinator::make();
};

TEST_F(AutoRoutingTimesTest, AChoiceStandsForTwoSeconds) {
  browsers_.setSession(spotify, "Song");
  press();
  browsers_.setSession(music, "Song");
  world_.time().run(2s);
  press();
  EXPECT_EQ(commands(spotify), 2U);
  EXPECT_THAT(browsers_.asked(), ElementsAre("get"));

  // The second press is not counted from, and by now the owner that was seen first is still recent.
  world_.time().run(1ms);
  press();
  EXPECT_EQ(commands(spotify), 3U);
  EXPECT_THAT(browsers_.asked(), ElementsAre("get"));
}

TEST_F(AutoRoutingTimesTest, AnOwnerIsRecentForFifteenSeconds) {
  browsers_.setSession(spotify, "Song");
  press();
  browsers_.setSession(music, "Song");
  world_.time().run(15s);
  press();
  EXPECT_EQ(commands(spotify), 2U);
  EXPECT_THAT(browsers_.asked(), ElementsAre("get"));

  world_.time().run(2s + 1ms);
  press();
  EXPECT_EQ(commands(music), 1U);
  EXPECT_THAT(browsers_.asked(), ElementsAre("get", "get"));
}

TEST_F(AutoRoutingTimesTest, APlayerKeepsOneControllerForTheWholeRun) {
  browsers_.launch(safari, "Safari");
  browsers_.setTabs(safari, {{"https://www.youtube.com/watch?v=1", "A long video - YouTube"}});
  browsers_.setScript(
      safari, SimulatedBrowsers::Kind::javaScript,
      Script().writeError("You must enable 'Allow JavaScript from Apple Events'.\n").exit(1));
  world_.time().run(20s);
  machine().dispatch().globalQueue(QualityOfService::utility).async([] {
    WebTabDetection::refreshMatches();
  });
  world_.time().run(1s);
  Preferences::setLastResolvedTargetID("youtube-web");

  for (int i = 0; i < 3; ++i) {
    press();
    world_.time().run(5s);
  }

  // The controller says it once in its life.
  const auto isNotice = [](const std::string& line) {
    return line.starts_with("JavaScript from Apple Events unavailable");
  };
  EXPECT_EQ(std::ranges::count_if(machine().log().messages("web-tab"), isNotice), 1);
  EXPECT_EQ(std::ranges::count(machine().log().messages("web-tab"),
                               "all routes failed for command in Safari"),
            3);
}

TEST_F(AutoRoutingTimesTest, AnAdapterThatHangsCostsOneAndAHalfSeconds) {
  browsers_.setGet(Script().liveOn());
  Preferences::setLastResolvedTargetID("spotify");
  press();
  EXPECT_EQ(commands(spotify), 0U);
  world_.time().run(1499ms);
  EXPECT_EQ(commands(spotify), 0U);
  world_.time().run(1ms);
  EXPECT_EQ(commands(spotify), 1U);
}

}  // namespace
}  // namespace talmo::test
