#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedDispatch.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// What a run of queues, delays, threads and waits did, in order.
std::vector<std::string> history(std::uint64_t seed) {
  std::vector<std::string> events;
  SimulatedDispatch dispatch(seed);
  const auto note = [&](const std::string& event) {
    events.push_back(event + " at " + std::to_string(dispatch.uptime().time_since_epoch().count()));
  };
  std::vector<std::shared_ptr<Queue>> queues;
  const std::shared_ptr<Semaphore> semaphore = dispatch.makeSemaphore(0);
  for (int index = 0; index < 4; ++index) {
    const std::string name = "queue " + std::to_string(index);
    queues.push_back(dispatch.makeSerialQueue(name, QualityOfService::utility));
    for (int item = 0; item < 4; ++item) {
      queues.back()->async([=, &note, &dispatch] {
        note(name + " item " + std::to_string(item));
        if (item == 1) note(semaphore->wait(5ms) ? name + " passed" : name + " gave up");
        if (item == 2) semaphore->signal();
        dispatch.globalQueue(QualityOfService::utility).async([=, &note] {
          note(name + " global");
        });
      });
    }
  }
  const std::shared_ptr<Timer> timer = dispatch.scheduledTimer(10ms, 4ms, [&] { note("timer"); });
  dispatch.run(100ms);
  timer->invalidate();
  return events;
}

TEST(SimulatedDispatch, TheSameSeedGivesTheSameRun) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) EXPECT_EQ(history(seed), history(seed));
}

TEST(SimulatedDispatch, AnotherSeedGivesAnotherRun) {
  int different = 0;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) different += history(seed) != history(0);
  EXPECT_GT(different, 15);
}

TEST(SimulatedDispatch, RunningThroughTimeServesEverythingAtItsInstant) {
  SimulatedDispatch dispatch;
  const Uptime start = dispatch.uptime();
  std::vector<Duration> fired;
  const auto timer =
      dispatch.scheduledTimer(10s, 0s, [&] { fired.push_back(dispatch.uptime() - start); });

  dispatch.run(35s);

  EXPECT_THAT(fired, ElementsAre(10s, 20s, 30s));
  EXPECT_EQ(dispatch.uptime() - start, 35s);
}

TEST(SimulatedDispatch, JumpingOverTimeServesWhatBecameDueOnceAndLate) {
  SimulatedDispatch dispatch;
  const Uptime start = dispatch.uptime();
  const Date startDate = dispatch.now();
  std::vector<Duration> fired;
  std::optional<Duration> delayed;
  const auto timer =
      dispatch.scheduledTimer(10s, 0s, [&] { fired.push_back(dispatch.uptime() - start); });
  dispatch.mainQueue().asyncAfter(3s, [&] { delayed = dispatch.uptime() - start; });

  dispatch.jump(35s);
  EXPECT_THAT(fired, IsEmpty());
  EXPECT_EQ(delayed, std::nullopt);

  dispatch.run(10s);
  EXPECT_THAT(fired, ElementsAre(35s, 40s));
  EXPECT_EQ(delayed, 35s);
  EXPECT_EQ(dispatch.now() - startDate, 45s);
}

TEST(SimulatedDispatch, TimeStandsStillWhileAnythingCanRun) {
  SimulatedDispatch dispatch;
  const Uptime start = dispatch.uptime();
  const auto queue = dispatch.makeSerialQueue("queue", QualityOfService::utility);
  int items = 0;
  bool isLate = false;
  dispatch.mainQueue().asyncAfter(1ns, [&] { isLate = true; });
  std::function<void()> again = [&] {
    EXPECT_EQ(dispatch.uptime(), start);
    EXPECT_FALSE(isLate);
    if (++items < 1000) queue->async(again);
  };
  queue->async(again);

  dispatch.run(1s);

  EXPECT_EQ(items, 1000);
  EXPECT_TRUE(isLate);
}

TEST(SimulatedDispatch, AWaitDoesNotKeepAnEarlierOneFromGoingOn) {
  // The first waiter is let go by what the main thread does after the second has begun to wait for
  // something that the first does: each needs a stack of its own.
  SimulatedDispatch dispatch;
  const auto first = dispatch.makeSerialQueue("first", QualityOfService::utility);
  const auto second = dispatch.makeSerialQueue("second", QualityOfService::utility);
  const auto forFirst = dispatch.makeSemaphore(0);
  const auto forSecond = dispatch.makeSemaphore(0);
  bool isDone = false;
  first->async([&] {
    forFirst->wait(std::nullopt);
    forSecond->signal();
  });
  dispatch.runUntilIdle();
  second->async([&] {
    forSecond->wait(std::nullopt);
    isDone = true;
  });
  dispatch.runUntilIdle();
  forFirst->signal();
  dispatch.runUntilIdle();

  EXPECT_TRUE(isDone);
}

TEST(SimulatedDispatch, TearingDownEndsWhatStillWaits) {
  bool hasEnded = false;
  {
    SimulatedDispatch dispatch;
    const auto semaphore = dispatch.makeSemaphore(0);
    dispatch.startThread("thread", QualityOfService::utility, [&hasEnded, semaphore] {
      EXPECT_FALSE(semaphore->wait(std::nullopt));
      hasEnded = true;
    });
    dispatch.runUntilIdle();
    EXPECT_FALSE(hasEnded);
  }
  EXPECT_TRUE(hasEnded);
}

TEST(SimulatedDispatchDeathTest, AMainThreadThatWaitsForNothingEndsTheTest) {
  EXPECT_DEATH(
      {
        SimulatedDispatch dispatch;
        dispatch.makeSemaphore(0)->wait(std::nullopt);
      },
      "waits for what can never happen");
}

}  // namespace
}  // namespace talmo
