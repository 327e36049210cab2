#include "tests/contract/DispatchContract.h"

#include <atomic>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;

/// Values in the order in which they were added, from any thread.
template <class Value>
class Record {
 public:
  void add(Value value) {
    const MutexLock lock(mutex_);
    values_.push_back(std::move(value));
    ++size_;
  }
  std::vector<Value> values() const {
    const MutexLock lock(mutex_);
    return values_;
  }
  std::size_t size() const { return size_; }

 private:
  mutable Mutex mutex_;
  std::vector<Value> values_ TALMO_GUARDED_BY(mutex_);
  std::atomic<std::size_t> size_ = 0;
};

/// Raises a flag when the last copy of it goes, and with it the closure that holds it.
std::shared_ptr<void> flagOnRelease(std::atomic<bool>& released) {
  return {nullptr, [&released](void*) { released = true; }};
}

}  // namespace

std::shared_ptr<Queue> DispatchContract::makeQueue() {
  return dispatch().makeSerialQueue("nl.brelm.talmo.contract", QualityOfService::unspecified);
}

void DispatchContract::pass(Duration duration) {
  std::atomic<bool> over = false;
  dispatch().mainQueue().asyncAfter(duration, [&over] { over = true; });
  ASSERT_TRUE(runUntil([&over] { return over.load(); }, duration + patience));
}

TEST_P(DispatchContract, SerialQueueKeepsTheOrderOfSubmission) {
  constexpr int count = 200;
  Record<int> order;
  const auto queue = makeQueue();
  std::vector<int> expected;
  for (int item = 0; item < count; ++item) {
    queue->async([&order, item] { order.add(item); });
    expected.push_back(item);
  }
  ASSERT_TRUE(runUntil([&order] { return order.size() == count; }));
  EXPECT_EQ(order.values(), expected);
}

TEST_P(DispatchContract, SerialQueueRunsOneItemAtATime) {
  constexpr int count = 12;
  std::atomic<int> running = 0;
  std::atomic<int> overlaps = 0;
  std::atomic<int> ended = 0;
  const auto queue = makeQueue();
  for (int item = 0; item < count; ++item) {
    queue->async([&] {
      if (++running != 1) ++overlaps;
      dispatch().makeSemaphore(0)->wait(1ms);
      --running;
      ++ended;
    });
  }
  ASSERT_TRUE(runUntil([&ended] { return ended == count; }));
  EXPECT_EQ(overlaps, 0);
}

TEST_P(DispatchContract, SerialQueuesDoNotWaitForEachOther) {
  const auto opened = dispatch().makeSemaphore(0);
  std::atomic<bool> passed = false;
  const auto waiting = makeQueue();
  const auto opening = makeQueue();
  waiting->async([&] { passed = opened->wait(patience); });
  opening->async([&] { opened->signal(); });
  EXPECT_TRUE(runUntil([&passed] { return passed.load(); }));
}

TEST_P(DispatchContract, ItemSubmittedByAnItemRunsAfterThoseInFrontOfIt) {
  Record<std::string> order;
  const auto begin = dispatch().makeSemaphore(0);
  const auto queue = makeQueue();
  queue->async([&] {
    begin->wait(patience);
    order.add("first");
    queue->async([&order] { order.add("nested"); });
  });
  queue->async([&order] { order.add("second"); });
  begin->signal();
  ASSERT_TRUE(runUntil([&order] { return order.size() == 3; }));
  EXPECT_THAT(order.values(), ElementsAre("first", "second", "nested"));
}

TEST_P(DispatchContract, ItemRunsAlthoughTheOwnerLetGoOfItsQueue) {
  Record<std::string> order;
  const auto begin = dispatch().makeSemaphore(0);
  auto queue = makeQueue();
  queue->async([&] {
    begin->wait(patience);
    order.add("first");
  });
  queue->async([&order] { order.add("second"); });
  queue->asyncAfter(10ms, [&order] { order.add("delayed"); });
  queue.reset();
  begin->signal();
  ASSERT_TRUE(runUntil([&order] { return order.size() == 3; }));
  EXPECT_THAT(order.values(), ElementsAre("first", "second", "delayed"));
}

TEST_P(DispatchContract, ItemMayHoldTheLastOwnerOfItsOwnQueue) {
  std::atomic<bool> ran = false;
  std::atomic<bool> released = false;
  auto queue = makeQueue();
  Queue& borrowed = *queue;
  borrowed.async([&ran, owner = std::move(queue), flag = flagOnRelease(released)] { ran = true; });
  EXPECT_TRUE(runUntil([&] { return ran && released; }));
}

TEST_P(DispatchContract, ItemIsReleasedOnceItHasRun) {
  std::atomic<bool> serialReleased = false;
  std::atomic<bool> globalReleased = false;
  std::atomic<bool> mainReleased = false;
  const auto queue = makeQueue();
  queue->async([flag = flagOnRelease(serialReleased)] {});
  dispatch().globalQueue(QualityOfService::utility).async([flag = flagOnRelease(globalReleased)] {
  });
  dispatch().mainQueue().async([flag = flagOnRelease(mainReleased)] {});
  EXPECT_TRUE(runUntil([&] { return serialReleased && globalReleased && mainReleased; }));
}

TEST_P(DispatchContract, QueueKeepsItsLabel) {
  const auto queue =
      dispatch().makeSerialQueue("nl.brelm.talmo.commands", QualityOfService::userInitiated);
  EXPECT_EQ(queue->label(), "nl.brelm.talmo.commands");
  EXPECT_FALSE(dispatch().mainQueue().label().empty());
  EXPECT_FALSE(dispatch().globalQueue(QualityOfService::utility).label().empty());
}

TEST_P(DispatchContract, MainQueueRunsItsItemsInOrderOnTheMainThread) {
  Record<int> order;
  Record<bool> onMainThread;
  EXPECT_TRUE(dispatch().isMainThread());
  for (int item = 0; item < 3; ++item) {
    dispatch().mainQueue().async([&, item] {
      order.add(item);
      onMainThread.add(dispatch().isMainThread());
    });
  }
  EXPECT_EQ(order.size(), 0U) << "an item ran before the main queue was served";
  ASSERT_TRUE(runUntil([&] { return onMainThread.size() == 3; }));
  EXPECT_THAT(order.values(), ElementsAre(0, 1, 2));
  EXPECT_THAT(onMainThread.values(), Each(true));
}

TEST_P(DispatchContract, MainQueueTakesItemsFromEverywhere) {
  constexpr std::size_t count = 4;
  Record<bool> onMainThread;
  const auto submit = [&] {
    dispatch().mainQueue().async([&] { onMainThread.add(dispatch().isMainThread()); });
  };
  const auto queue = makeQueue();
  queue->async(submit);
  dispatch().globalQueue(QualityOfService::unspecified).async(submit);
  dispatch().startThread("nl.brelm.talmo.contract-thread", QualityOfService::unspecified, submit);
  dispatch().mainQueue().async(submit);
  ASSERT_TRUE(runUntil([&] { return onMainThread.size() == count; }));
  EXPECT_THAT(onMainThread.values(), Each(true));
}

TEST_P(DispatchContract, OtherQueuesAndThreadsAreNotTheMainThread) {
  constexpr std::size_t count = 3;
  Record<bool> onMainThread;
  const auto look = [&] { onMainThread.add(dispatch().isMainThread()); };
  const auto queue = makeQueue();
  queue->async(look);
  dispatch().globalQueue(QualityOfService::userInteractive).async(look);
  dispatch().startThread("nl.brelm.talmo.contract-thread", QualityOfService::userInteractive, look);
  ASSERT_TRUE(runUntil([&] { return onMainThread.size() == count; }));
  EXPECT_THAT(onMainThread.values(), Each(false));
}

TEST_P(DispatchContract, DelayedItemsAreNeverEarly) {
  constexpr Duration delay = 30ms;
  Record<Duration> waited;
  const auto queue = makeQueue();
  const Uptime start = dispatch().uptime();
  const auto look = [&waited, start, this] { waited.add(dispatch().uptime() - start); };
  queue->asyncAfter(delay, look);
  dispatch().mainQueue().asyncAfter(delay, look);
  dispatch().globalQueue(QualityOfService::utility).asyncAfter(delay, look);
  ASSERT_TRUE(runUntil([&waited] { return waited.size() == 3; }));
  EXPECT_THAT(waited.values(), Each(testing::Ge(delay)));
}

TEST_P(DispatchContract, DelayedItemsRunInTheOrderOfTheirTimes) {
  // Far enough apart that the time between the calls does not matter.
  Record<std::string> order;
  const auto queue = makeQueue();
  queue->asyncAfter(600ms, [&order] { order.add("late"); });
  queue->asyncAfter(300ms, [&order] { order.add("soon"); });
  queue->asyncAfter(0ms, [&order] { order.add("at once"); });
  ASSERT_TRUE(runUntil([&order] { return order.size() == 3; }));
  EXPECT_THAT(order.values(), ElementsAre("at once", "soon", "late"));
}

TEST_P(DispatchContract, NegativeDelayIsNone) {
  std::atomic<bool> ran = false;
  const auto queue = makeQueue();
  queue->asyncAfter(-1s, [&ran] { ran = true; });
  EXPECT_TRUE(runUntil([&ran] { return ran.load(); }));
}

TEST_P(DispatchContract, DelayedItemDoesNotHoldUpItsQueue) {
  Record<std::string> order;
  const auto queue = makeQueue();
  queue->asyncAfter(300ms, [&order] { order.add("delayed"); });
  queue->async([&order] { order.add("at once"); });
  ASSERT_TRUE(runUntil([&order] { return order.size() == 2; }));
  EXPECT_THAT(order.values(), ElementsAre("at once", "delayed"));
}

TEST_P(DispatchContract, GlobalQueueRunsAnItemWhileOthersWait) {
  constexpr int waiters = 8;
  const auto opened = dispatch().makeSemaphore(0);
  std::atomic<int> passed = 0;
  Queue& queue = dispatch().globalQueue(QualityOfService::utility);
  for (int waiter = 0; waiter < waiters; ++waiter) {
    queue.async([&] {
      if (opened->wait(patience)) ++passed;
    });
  }
  queue.async([&] {
    for (int waiter = 0; waiter < waiters; ++waiter) opened->signal();
  });
  EXPECT_TRUE(runUntil([&passed] { return passed == waiters; }));
}

TEST_P(DispatchContract, SemaphoreLetsAsManyPassAsItHolds) {
  const auto semaphore = dispatch().makeSemaphore(2);
  EXPECT_TRUE(semaphore->wait(0ms));
  EXPECT_TRUE(semaphore->wait(std::nullopt));
  EXPECT_FALSE(semaphore->wait(0ms));
  semaphore->signal();
  EXPECT_TRUE(semaphore->wait(0ms));
  EXPECT_FALSE(semaphore->wait(0ms));
}

TEST_P(DispatchContract, SemaphoreTimesOutNoSoonerThanAsked) {
  const auto semaphore = dispatch().makeSemaphore(0);
  const Uptime start = dispatch().uptime();
  EXPECT_FALSE(semaphore->wait(30ms));
  EXPECT_GE(dispatch().uptime() - start, 30ms);
}

TEST_P(DispatchContract, SemaphoreThatTimedOutTakesNoLaterSignal) {
  const auto semaphore = dispatch().makeSemaphore(0);
  EXPECT_FALSE(semaphore->wait(5ms));
  semaphore->signal();
  EXPECT_TRUE(semaphore->wait(0ms));
  EXPECT_FALSE(semaphore->wait(0ms));
}

TEST_P(DispatchContract, SignalFromAQueueLetsTheMainThreadGo) {
  const auto semaphore = dispatch().makeSemaphore(0);
  const auto queue = makeQueue();
  queue->async([&semaphore] { semaphore->signal(); });
  EXPECT_TRUE(semaphore->wait(patience));
  queue->asyncAfter(20ms, [&semaphore] { semaphore->signal(); });
  EXPECT_TRUE(semaphore->wait(std::nullopt));
}

TEST_P(DispatchContract, OneSignalLetsOneWaiterGo) {
  const auto semaphore = dispatch().makeSemaphore(0);
  std::atomic<int> passed = 0;
  for (int waiter = 0; waiter < 3; ++waiter) {
    dispatch().globalQueue(QualityOfService::unspecified).async([&] {
      semaphore->wait(std::nullopt);
      ++passed;
    });
  }
  semaphore->signal();
  ASSERT_TRUE(runUntil([&passed] { return passed >= 1; }));
  pass(30ms);
  EXPECT_EQ(passed, 1);
  semaphore->signal();
  semaphore->signal();
  EXPECT_TRUE(runUntil([&passed] { return passed == 3; }));
}

TEST_P(DispatchContract, WaitingOnTheMainThreadStopsTheMainQueue) {
  std::atomic<bool> ran = false;
  const auto semaphore = dispatch().makeSemaphore(0);
  const auto queue = makeQueue();
  dispatch().mainQueue().async([&ran] { ran = true; });
  queue->asyncAfter(20ms, [&semaphore] { semaphore->signal(); });
  ASSERT_TRUE(semaphore->wait(patience));
  EXPECT_FALSE(ran);
  EXPECT_TRUE(runUntil([&ran] { return ran.load(); }));
}

TEST_P(DispatchContract, ConcurrentPerformRunsEachIterationOnceAndReturnsAfterAll) {
  constexpr std::size_t count = 20;
  std::vector<std::atomic<int>> runs(count);
  std::atomic<int> running = 0;
  dispatch().concurrentPerform(count, [&](std::size_t index) {
    ++running;
    // Whatever runs elsewhere takes longer than what the caller does itself.
    dispatch().makeSemaphore(0)->wait(dispatch().isMainThread() ? 1ms : 30ms);
    ++runs[index];
    --running;
  });
  EXPECT_EQ(running, 0);
  for (std::size_t index = 0; index < count; ++index) {
    EXPECT_EQ(runs[index], 1) << "iteration " << index;
  }
}

TEST_P(DispatchContract, ConcurrentPerformIterationsThatWaitDoNotHoldUpTheOthers) {
  constexpr std::size_t count = Dispatch::concurrentIterations;
  std::atomic<std::size_t> begun = 0;
  std::atomic<std::size_t> released = 0;
  const auto allHaveBegun = dispatch().makeSemaphore(0);
  dispatch().concurrentPerform(count, [&](std::size_t) {
    if (++begun == count) {
      for (std::size_t waiting = 0; waiting < count; ++waiting) allHaveBegun->signal();
    }
    if (allHaveBegun->wait(patience)) ++released;
  });
  EXPECT_EQ(released, count);
}

TEST_P(DispatchContract, ConcurrentPerformOfNothingReturns) {
  bool ran = false;
  dispatch().concurrentPerform(0, [&ran](std::size_t) { ran = true; });
  EXPECT_FALSE(ran);
}

TEST_P(DispatchContract, ConcurrentPerformMayBeCalledOnQueuesAndNested) {
  std::atomic<int> iterations = 0;
  std::atomic<bool> ended = false;
  const auto queue = makeQueue();
  queue->async([&] {
    dispatch().concurrentPerform(4, [&](std::size_t) {
      dispatch().concurrentPerform(4, [&iterations](std::size_t) { ++iterations; });
    });
    ended = true;
  });
  ASSERT_TRUE(runUntil([&ended] { return ended.load(); }));
  EXPECT_EQ(iterations, 16);
}

TEST_P(DispatchContract, TimerFiresOnTheMainThreadAgainAndAgain) {
  constexpr Duration interval = 20ms;
  Record<Duration> firings;
  Record<bool> onMainThread;
  const Uptime start = dispatch().uptime();
  const auto timer = dispatch().scheduledTimer(interval, 0ms, [&] {
    onMainThread.add(dispatch().isMainThread());
    firings.add(dispatch().uptime() - start);
  });
  ASSERT_TRUE(runUntil([&firings] { return firings.size() >= 4; }));
  timer->invalidate();
  EXPECT_THAT(onMainThread.values(), Each(true));
  const std::vector<Duration> times = firings.values();
  for (std::size_t firing = 0; firing < times.size(); ++firing) {
    EXPECT_GE(times[firing], interval * (firing + 1)) << "firing " << firing << " was early";
  }
}

TEST_P(DispatchContract, TimerWithToleranceIsNotEarly) {
  constexpr Duration interval = 20ms;
  Record<Duration> firings;
  const Uptime start = dispatch().uptime();
  const auto timer =
      dispatch().scheduledTimer(interval, 15ms, [&] { firings.add(dispatch().uptime() - start); });
  ASSERT_TRUE(runUntil([&firings] { return firings.size() >= 3; }));
  timer->invalidate();
  const std::vector<Duration> times = firings.values();
  for (std::size_t firing = 0; firing < times.size(); ++firing) {
    EXPECT_GE(times[firing], interval * (firing + 1)) << "firing " << firing << " was early";
  }
}

TEST_P(DispatchContract, TimerGoesOnWhenItsOwnerLetsGo) {
  std::atomic<int> firings = 0;
  std::shared_ptr<Timer> kept;
  {
    const auto timer = dispatch().scheduledTimer(5ms, 0ms, [&firings] { ++firings; });
    kept = timer;
  }
  const std::weak_ptr<Timer> weak = kept;
  kept.reset();
  EXPECT_TRUE(runUntil([&firings] { return firings >= 3; }));
  const auto timer = weak.lock();
  ASSERT_NE(timer, nullptr) << "the run loop let go of a valid timer";
  timer->invalidate();
}

TEST_P(DispatchContract, InvalidatedTimerDoesNotFireAgainAndReleasesItsBlock) {
  std::atomic<int> firings = 0;
  std::atomic<bool> released = false;
  const auto timer = dispatch().scheduledTimer(
      10ms, 0ms, [&firings, flag = flagOnRelease(released)] { ++firings; });
  ASSERT_TRUE(runUntil([&firings] { return firings >= 2; }));
  timer->invalidate();
  EXPECT_TRUE(released);
  const int before = firings;
  timer->invalidate();
  pass(60ms);
  EXPECT_EQ(firings, before);
}

TEST_P(DispatchContract, FiringThatIsDueWhenTheTimerIsInvalidatedDoesNotHappen) {
  std::atomic<int> firings = 0;
  // The main queue stands still in this item while the timer comes due.
  dispatch().mainQueue().async([&] {
    const auto timer = dispatch().scheduledTimer(10ms, 0ms, [&firings] { ++firings; });
    dispatch().makeSemaphore(0)->wait(35ms);
    timer->invalidate();
  });
  pass(100ms);
  EXPECT_EQ(firings, 0);
}

TEST_P(DispatchContract, TimerMayInvalidateItselfInItsBlock) {
  std::atomic<int> firings = 0;
  std::atomic<bool> released = false;
  std::shared_ptr<Timer> timer;
  timer = dispatch().scheduledTimer(
      10ms, 0ms, [&, flag = flagOnRelease(released), text = std::string(99, 'x')] {
        ++firings;
        timer->invalidate();
        // What the block holds is there until it returns.
        EXPECT_FALSE(released);
        EXPECT_EQ(text, std::string(99, 'x'));
      });
  ASSERT_TRUE(runUntil([&firings] { return firings >= 1; }));
  pass(60ms);
  EXPECT_EQ(firings, 1);
  EXPECT_TRUE(released);
}

TEST_P(DispatchContract, TimerThatMissedSeveralPeriodsFiresOnce) {
  constexpr Duration interval = 40ms;
  Record<Uptime> firings;
  const auto timer =
      dispatch().scheduledTimer(interval, 0ms, [&] { firings.add(dispatch().uptime()); });
  EXPECT_FALSE(dispatch().makeSemaphore(0)->wait(interval * 5 + interval / 2));
  EXPECT_EQ(firings.size(), 0U);
  ASSERT_TRUE(runUntil([&firings] { return firings.size() >= 3; }));
  timer->invalidate();
  // The first firing comes late, the second on the next beat after it, so that only the third is
  // a whole period away for certain. Firings that made up for missed ones would follow at once.
  const std::vector<Uptime> times = firings.values();
  EXPECT_GE(times[2] - times[0], interval);
}

TEST_P(DispatchContract, TimersOfDifferentPeriodsRunSideBySide) {
  std::atomic<int> quick = 0;
  std::atomic<int> slow = 0;
  const auto quickTimer = dispatch().scheduledTimer(10ms, 0ms, [&quick] { ++quick; });
  const auto slowTimer = dispatch().scheduledTimer(25ms, 0ms, [&slow] { ++slow; });
  EXPECT_TRUE(runUntil([&] { return slow >= 2 && quick >= 4; }));
  quickTimer->invalidate();
  slowTimer->invalidate();
}

TEST_P(DispatchContract, ThreadRunsItsBodyAndReleasesIt) {
  std::atomic<bool> ran = false;
  std::atomic<bool> released = false;
  dispatch().startThread("nl.brelm.talmo.contract-thread", QualityOfService::userInteractive,
                         [&ran, flag = flagOnRelease(released)] { ran = true; });
  EXPECT_TRUE(runUntil([&] { return ran && released; }));
}

TEST_P(DispatchContract, ThreadMayWaitForTheMainThread) {
  const auto asked = dispatch().makeSemaphore(0);
  const auto answered = dispatch().makeSemaphore(0);
  std::atomic<bool> ended = false;
  dispatch().startThread("nl.brelm.talmo.contract-thread", QualityOfService::utility, [&] {
    asked->signal();
    ended = answered->wait(patience);
  });
  ASSERT_TRUE(asked->wait(patience));
  answered->signal();
  EXPECT_TRUE(runUntil([&ended] { return ended.load(); }));
}

TEST_P(DispatchContract, ClocksMoveForwardByWhatPassed) {
  constexpr Duration passed = 80ms;
  const Uptime uptime = dispatch().uptime();
  const Date date = dispatch().now();
  pass(passed);
  const Duration byUptime = dispatch().uptime() - uptime;
  const Duration byDate = dispatch().now() - date;
  EXPECT_GE(byUptime, passed);
  // The wall clock may be adjusted while it runs, so it is only compared roughly.
  EXPECT_GE(byDate, passed - 10ms);
  EXPECT_LE(byDate, byUptime + 1s);
}

TEST_P(DispatchContract, ClockTellsTheTimeOfAnItemAsItRuns) {
  Record<Uptime> times;
  const auto queue = makeQueue();
  const Uptime start = dispatch().uptime();
  for (int item = 0; item < 3; ++item) {
    queue->async([&] {
      dispatch().makeSemaphore(0)->wait(10ms);
      times.add(dispatch().uptime());
    });
  }
  ASSERT_TRUE(runUntil([&times] { return times.size() == 3; }));
  const std::vector<Uptime> seen = times.values();
  EXPECT_GE(seen[0] - start, 10ms);
  EXPECT_GE(seen[1] - seen[0], 10ms);
  EXPECT_GE(seen[2] - seen[1], 10ms);
}

}  // namespace talmo::test
