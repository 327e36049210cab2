#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "keys/MediaKeyTap.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo {
namespace {

using testing::ElementsAre;

TEST(TapThread, ARunningTapHasOneThreadHoweverOftenItIsStarted) {
  test::SimulatedWorld world;
  const auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());
  ASSERT_TRUE(tap->start());
  EXPECT_THAT(world.time().startedThreads(), ElementsAre("nl.brelm.talmo.media-key-tap"));
}

TEST(TapThread, EachStartAfterAStopHasANewThread) {
  test::SimulatedWorld world;
  const auto tap = MediaKeyTap::make();
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(tap->start());
    tap->stop();
  }
  EXPECT_EQ(world.time().startedThreads().size(), 3U);
}

}  // namespace
}  // namespace talmo
