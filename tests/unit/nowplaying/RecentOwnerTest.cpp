#include <chrono>

#include <gtest/gtest.h>

#include "nowplaying/AdapterNowPlaying.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// Has somebody learn of an owner.
void learn(SimulatedWorld& world, const std::string& owner) {
  world.machine().childProcesses().setPrograms([owner](const ChildProcessParameters&) {
    return SimulatedChildScript().write(R"({"bundleIdentifier":")" + owner +
                                        R"(","title":"t","playing":false})");
  });
  bool isDone = false;
  AdapterNowPlaying::get(true, [&](const auto&) { isDone = true; });
  ASSERT_TRUE(world.runUntil([&] { return isDone; }));
}

std::string recent(Duration maxAge) {
  const std::optional<AdapterOwner> owner = AdapterNowPlaying::recentOwner(maxAge);
  return owner ? owner->bundleID : "none";
}

TEST(RecentOwner, IsNoneBeforeAnythingWasLearnt) {
  const SimulatedWorld world;
  EXPECT_EQ(recent(15s), "none");
  EXPECT_EQ(recent(Duration::max()), "none");
}

TEST(RecentOwner, IsGivenUpToTheAgeAndNotBeyond) {
  SimulatedWorld world;
  learn(world, "a");
  world.time().run(15s);
  EXPECT_EQ(recent(15s), "a");
  world.time().run(1ns);
  EXPECT_EQ(recent(15s), "none");
  EXPECT_EQ(recent(Duration::max()), "a");
}

TEST(RecentOwner, IsTheLastOne) {
  SimulatedWorld world;
  learn(world, "a");
  world.time().run(10s);
  learn(world, "b");
  world.time().run(10s);
  EXPECT_EQ(recent(15s), "b");
}

TEST(RecentOwner, AgesWhileTheMachineSleeps) {
  SimulatedWorld world;
  learn(world, "a");
  world.time().jump(20s);
  EXPECT_EQ(recent(15s), "none");
}

}  // namespace
}  // namespace talmo::test
