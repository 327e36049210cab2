// When the audio activity polls, and for how long it remembers, in virtual time.

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "nowplaying/AudioActivity.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using Set = std::set<std::string>;

class AudioActivityTimesTest : public testing::TestWithParam<std::uint64_t> {
 protected:
  SimulatedDispatch& time() { return world_.time(); }
  SimulatedAudioObjects& audio() { return world_.machine().audioObjects(); }
  int polls() { return audio().reads(AudioObjects::systemObject, AudioObjects::processObjectList); }

 private:
  SimulatedWorld world_{GetParam()};

 protected:
  std::shared_ptr<AudioActivity> activity = AudioActivity::make();
};

TEST_P(AudioActivityTimesTest, PollsAtOnceAndEveryTwoSecondsWithHalfASecondToSpare) {
  activity->startPolling();
  time().runUntilIdle();
  EXPECT_EQ(polls(), 1);
  time().run(1999ms);
  EXPECT_EQ(polls(), 1);
  time().run(501ms);
  EXPECT_EQ(polls(), 2);
  time().run(20s);
  EXPECT_THAT(polls(), AllOf(Ge(10), Le(13)));
}

TEST_P(AudioActivityTimesTest, PollsNoMoreOnceStoppedAndAgainAfterARestart) {
  activity->startPolling();
  time().run(5s);
  activity->stopPolling();
  time().runUntilIdle();
  const int before = polls();
  time().run(60s);
  EXPECT_EQ(polls(), before);
  activity->startPolling();
  time().run(1s);
  EXPECT_EQ(polls(), before + 1);
}

TEST_P(AudioActivityTimesTest, ARestartReplacesTheTimer) {
  for (int i = 0; i < 5; ++i) activity->startPolling();
  time().runUntilIdle();
  EXPECT_EQ(polls(), 5);
  time().run(2500ms);
  EXPECT_EQ(polls(), 6);
}

TEST_P(AudioActivityTimesTest, PollsNoMoreOnceItIsGone) {
  activity->startPolling();
  time().run(5s);
  activity.reset();
  const int before = polls();
  time().run(60s);
  EXPECT_EQ(polls(), before);
}

TEST_P(AudioActivityTimesTest, DoesNotScanForAnObjectThatIsGone) {
  activity->startPolling();
  activity.reset();
  time().run(60s);
  EXPECT_EQ(polls(), 0);
}

TEST_P(AudioActivityTimesTest, KeepsAnApplicationForAWhileAfterItFallsSilent) {
  const auto object = audio().add({.bundleID = "com.a"});
  activity->startPolling();
  time().run(10s);
  ASSERT_EQ(activity->activeBundleIDs().get(), (Set{"com.a"}));
  audio().remove(object);
  // Last seen at most two and a half seconds ago; gone by the first poll after four seconds.
  time().run(1500ms);
  EXPECT_EQ(activity->activeBundleIDs().get(), (Set{"com.a"}));
  time().run(5s);
  EXPECT_THAT(activity->activeBundleIDs().get(), IsEmpty());
}

TEST_P(AudioActivityTimesTest, OneFailedPollTakesNothingAway) {
  audio().add({.bundleID = "com.a"});
  activity->startPolling();
  time().runUntilIdle();
  audio().setListSizeStatus(1);
  time().run(2500ms);
  EXPECT_EQ(activity->activeBundleIDs().get(), (Set{"com.a"}));
  time().run(5s);
  EXPECT_THAT(activity->activeBundleIDs().get(), IsEmpty());
  audio().setListSizeStatus(0);
  time().run(2500ms);
  EXPECT_EQ(activity->activeBundleIDs().get(), (Set{"com.a"}));
}

TEST_P(AudioActivityTimesTest, RemembersAcrossAStop) {
  const auto object = audio().add({.bundleID = "com.a"});
  activity->startPolling();
  time().runUntilIdle();
  activity->stopPolling();
  audio().remove(object);
  time().run(3s);
  activity->startPolling();
  time().runUntilIdle();
  EXPECT_EQ(activity->activeBundleIDs().get(), (Set{"com.a"}));
}

TEST_P(AudioActivityTimesTest, OnASystemWithoutProcessObjectsNothingIsEverAsked) {
  audio().setHasProcessObjects(false);
  audio().add({.bundleID = "com.a"});
  activity->startPolling();
  time().run(10s);
  EXPECT_THAT(activity->activeBundleIDs().get(), IsEmpty());
  EXPECT_EQ(polls(), 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AudioActivityTimesTest, testing::Range<std::uint64_t>(0, 8));

}  // namespace
}  // namespace talmo::test
