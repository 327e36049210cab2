#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Manner = SimulatedApplications::Manner;

TEST(CommandQueue, AHungPlayerCostsItsTwoSecondsAndThenTheNextKeyArrives) {
  constexpr const char* spotify = "com.spotify.client";
  test::SimulatedWorld world;
  SimulatedPlatform& machine = world.machine();
  machine.applications().install({spotify, "Spotify"});
  machine.applications().launch(spotify);
  machine.applications().setManner(spotify, Manner::neverAnswers);
  machine.userDefaults().setString("selectedTargetAppID", "spotify");
  machine.userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();
  const Uptime start = machine.dispatch().uptime();

  machine.eventTap().postMediaKey(16, true);
  machine.eventTap().postMediaKey(17, true);
  world.time().runUntilIdle();
  // Both are consumed at once, while the first waits for its player.
  EXPECT_EQ(machine.eventTap().consumed().size(), 2U);
  EXPECT_EQ(machine.dispatch().uptime(), start);
  EXPECT_EQ(machine.appleEvents().timeouts().size(), 1U);

  machine.applications().setManner(spotify, Manner::answers);
  ASSERT_TRUE(world.runUntil([&] { return !machine.applications().commands(spotify).empty(); }));
  EXPECT_THAT(machine.applications().commands(spotify), ElementsAre("nextTrack"));
  EXPECT_EQ(machine.dispatch().uptime() - start, 2s);
}

TEST(CommandQueue, AFixedPlayerThatIsNotInstalledSwallowsItsKeys) {
  test::SimulatedWorld world;
  SimulatedPlatform& machine = world.machine();
  machine.userDefaults().setString("selectedTargetAppID", "spotify");
  machine.userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();

  for (const std::int32_t key : {16, 17, 18, 19, 20}) {
    machine.eventTap().postMediaKey(key, true);
    machine.eventTap().postMediaKey(key, false);
  }
  world.time().run(10s);

  EXPECT_EQ(machine.eventTap().consumed().size(), 10U);
  EXPECT_THAT(machine.workspace().openedApplications(), IsEmpty());
  EXPECT_THAT(machine.log().messages(LogLevel::error), IsEmpty());
}

TEST(CommandQueue, AMachineWithoutPlayersLaunchesNothingInAutoMode) {
  test::SimulatedWorld world;
  SimulatedPlatform& machine = world.machine();
  machine.userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();

  machine.eventTap().postMediaKey(16, true);
  world.time().run(10s);

  EXPECT_EQ(machine.eventTap().consumed().size(), 1U);
  EXPECT_THAT(machine.workspace().openedApplications(), IsEmpty());
  EXPECT_EQ(machine.log().messages("coordinator").back(), "auto: nothing resolved");
}

}  // namespace
}  // namespace talmo
