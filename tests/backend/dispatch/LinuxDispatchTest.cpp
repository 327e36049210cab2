#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <memory>
#include <pthread.h>
#include <set>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <time.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

std::string currentThreadName() {
  std::array<char, 16> name{};
  ::pthread_getname_np(::pthread_self(), name.data(), name.size());
  return name.data();
}

int currentThreadNiceness() {
  return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

std::ptrdiff_t threadsOfThisProcess() {
  // The thread sanitizer starts one of its own together with the first of the program's.
  static const bool isWarm = (std::thread([] {}).join(), true);
  EXPECT_TRUE(isWarm);
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

Duration processorTimeOfThisThread() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Runs `look` by `submit` and waits until it has run.
template <class Submit>
void runAndWait(LinuxDispatch& dispatch, const Submit& submit, const std::function<void()>& look) {
  const auto ended = dispatch.makeSemaphore(0);
  submit([&look, ended] {
    look();
    ended->signal();
  });
  ASSERT_TRUE(ended->wait(10s));
}

TEST(LinuxDispatch, ThreadsAreNamedAfterTheLastComponentOfTheirLabel) {
  LinuxDispatch dispatch;
  std::string name;
  const auto look = [&name] { name = currentThreadName(); };
  const auto start = [&dispatch](const char* label) {
    return [&dispatch, label](std::function<void()> body) {
      dispatch.startThread(label, QualityOfService::unspecified, std::move(body));
    };
  };
  runAndWait(dispatch, start("nl.brelm.talmo.media-key-tap"), look);
  EXPECT_EQ(name, "media-key-tap");
  runAndWait(dispatch, start("nl.brelm.talmo.system-now-playing"), look);
  EXPECT_EQ(name, "system-now-play");
  runAndWait(dispatch, start("plain"), look);
  EXPECT_EQ(name, "plain");
}

TEST(LinuxDispatch, SerialQueueHasANamedThreadOfItsOwn) {
  LinuxDispatch dispatch;
  const std::string before = currentThreadName();
  std::string name;
  pid_t thread = 0;
  const auto look = [&] {
    name = currentThreadName();
    thread = ::gettid();
  };
  const auto commands =
      dispatch.makeSerialQueue("nl.brelm.talmo.commands", QualityOfService::unspecified);
  const auto webTab =
      dispatch.makeSerialQueue("nl.brelm.talmo.web-tab", QualityOfService::unspecified);
  runAndWait(dispatch, [&](auto work) { commands->async(std::move(work)); }, look);
  EXPECT_EQ(name, "commands");
  const pid_t first = thread;
  runAndWait(dispatch, [&](auto work) { webTab->async(std::move(work)); }, look);
  EXPECT_EQ(name, "web-tab");
  EXPECT_NE(thread, first);
  runAndWait(dispatch, [&](auto work) { commands->async(std::move(work)); }, look);
  EXPECT_EQ(thread, first);
  EXPECT_EQ(currentThreadName(), before);
}

TEST(LinuxDispatch, ThreadOfASerialQueueEndsWithItsOwner) {
  LinuxDispatch dispatch;
  const std::ptrdiff_t before = threadsOfThisProcess();
  auto queue = dispatch.makeSerialQueue("queue", QualityOfService::unspecified);
  EXPECT_EQ(threadsOfThisProcess(), before) << "a queue without items needs no thread";
  runAndWait(dispatch, [&](auto work) { queue->async(std::move(work)); }, [] {});
  EXPECT_EQ(threadsOfThisProcess(), before + 1);
  queue.reset();
  EXPECT_TRUE(waitUntil([before] { return threadsOfThisProcess() == before; }));
}

TEST(LinuxDispatch, UtilityWorkMakesWayForOthers) {
  LinuxDispatch dispatch;
  const int usual = currentThreadNiceness();
  int niceness = 0;
  const auto look = [&niceness] { niceness = currentThreadNiceness(); };
  const auto utility = dispatch.makeSerialQueue("utility", QualityOfService::utility);
  const auto urgent = dispatch.makeSerialQueue("urgent", QualityOfService::userInteractive);
  runAndWait(dispatch, [&](auto work) { utility->async(std::move(work)); }, look);
  EXPECT_EQ(niceness, std::min(usual + 5, 19));
  runAndWait(dispatch, [&](auto work) { urgent->async(std::move(work)); }, look);
  EXPECT_EQ(niceness, usual);
  EXPECT_EQ(currentThreadNiceness(), usual);
}

TEST(LinuxDispatch, MainLoopWakesForItemsOfOtherThreadsAndEndsWhenTold) {
  LinuxDispatch dispatch;
  bool ran = false;
  dispatch.startThread("other", QualityOfService::unspecified, [&] {
    dispatch.mainQueue().asyncAfter(20ms, [&] {
      ran = true;
      dispatch.stopMainLoop();
    });
  });
  dispatch.runMainLoop();
  EXPECT_TRUE(ran);
}

TEST(LinuxDispatch, MainLoopEndsWhenAnotherThreadStopsIt) {
  LinuxDispatch dispatch;
  dispatch.globalQueue(QualityOfService::unspecified).asyncAfter(20ms, [&] {
    dispatch.stopMainLoop();
  });
  dispatch.runMainLoop();
}

TEST(LinuxDispatch, MainLoopThatWasStoppedBeforeItRanReturnsAtOnce) {
  LinuxDispatch dispatch;
  bool ran = false;
  dispatch.mainQueue().async([&ran] { ran = true; });
  dispatch.stopMainLoop();
  dispatch.runMainLoop();
  EXPECT_FALSE(ran);
  // The request is used up, and nothing was lost.
  dispatch.mainQueue().async([&dispatch] { dispatch.stopMainLoop(); });
  dispatch.runMainLoop();
  EXPECT_TRUE(ran);
}

TEST(LinuxDispatch, WaitingMainLoopUsesNoProcessorTime) {
  LinuxDispatch dispatch;
  dispatch.mainQueue().async([] {});
  dispatch.mainQueue().asyncAfter(300ms, [&dispatch] { dispatch.stopMainLoop(); });
  const Duration before = processorTimeOfThisThread();
  dispatch.runMainLoop();
  EXPECT_LT(processorTimeOfThisThread() - before, 100ms);
}

TEST(LinuxDispatch, ServingUntilAConditionGivesUpAtTheDeadline) {
  LinuxDispatch dispatch;
  const Uptime deadline = dispatch.uptime() + 30ms;
  EXPECT_FALSE(dispatch.serveMainQueueUntil([] { return false; }, deadline));
  EXPECT_GE(dispatch.uptime(), deadline);
}

TEST(LinuxDispatch, FarAwayDelaysAndTimeOutsAreNotOverflown) {
  LinuxDispatch dispatch;
  std::atomic<bool> ran = false;
  const auto semaphore = dispatch.makeSemaphore(0);
  dispatch.mainQueue().asyncAfter(Duration::max(), [&ran] { ran = true; });
  dispatch.globalQueue(QualityOfService::unspecified).asyncAfter(20ms, [&] {
    semaphore->signal();
  });
  EXPECT_TRUE(semaphore->wait(Duration::max()));
  EXPECT_FALSE(
      dispatch.serveMainQueueUntil([&ran] { return ran.load(); }, dispatch.uptime() + 20ms));
}

TEST(LinuxDispatch, TimerWithoutAnIntervalDoesNotBlockTheMainQueue) {
  LinuxDispatch dispatch;
  std::atomic<int> firings = 0;
  const auto timer = dispatch.scheduledTimer(0ms, 0ms, [&firings] { ++firings; });
  bool ran = false;
  dispatch.mainQueue().asyncAfter(20ms, [&ran] { ran = true; });
  EXPECT_TRUE(
      dispatch.serveMainQueueUntil([&] { return ran && firings >= 2; }, dispatch.uptime() + 10s));
  timer->invalidate();
}

TEST(LinuxWorkerPool, GrowsWhenAllAreBusyAndLetsIdleWorkersEnd) {
  constexpr int count = 6;
  LinuxThreads threads;
  LinuxWorkerPool pool(threads, "pool", QualityOfService::unspecified, 20ms);
  const std::ptrdiff_t before = threadsOfThisProcess();
  std::atomic<int> running = 0;
  std::atomic<bool> open = false;
  for (int item = 0; item < count; ++item) {
    EXPECT_TRUE(pool.submit([&] {
      ++running;
      waitUntil([&open] { return open.load(); });
    }));
  }
  EXPECT_TRUE(waitUntil([&running] { return running == count; }));
  EXPECT_EQ(threadsOfThisProcess(), before + count);
  open = true;
  EXPECT_TRUE(waitUntil([before] { return threadsOfThisProcess() == before; }));
  // The pool still works after all of them have gone.
  EXPECT_TRUE(pool.submit([&running] { running = 0; }));
  EXPECT_TRUE(waitUntil([&running] { return running == 0; }));
  pool.close();
  EXPECT_FALSE(pool.submit([] {}));
  EXPECT_TRUE(threads.waitForAll(std::nullopt));
}

TEST(LinuxWorkerPool, ItemGetsAWorkerAlthoughTheIdleOneIsAboutToTakeAnother) {
  for (int round = 0; round < 20 && !HasFailure(); ++round) {
    LinuxThreads threads;
    LinuxWorkerPool pool(threads, "pool", QualityOfService::unspecified);
    std::atomic<int> ended = 0;
    pool.submit([&ended] { ++ended; });
    ASSERT_TRUE(waitUntil([&ended] { return ended == 1; }));
    // One worker, which is idle by now in most rounds.
    std::atomic<bool> open = false;
    pool.submit([&] {
      EXPECT_TRUE(waitUntil([&open] { return open.load(); }, 5s));
      ++ended;
    });
    pool.submit([&] {
      open = true;
      ++ended;
    });
    ASSERT_TRUE(waitUntil([&ended] { return ended == 3; }));
    pool.close();
    EXPECT_TRUE(threads.waitForAll(std::nullopt));
  }
}

TEST(LinuxWorkerPool, WorkersAreUsedAgain) {
  LinuxThreads threads;
  LinuxWorkerPool pool(threads, "pool", QualityOfService::unspecified);
  Mutex mutex;
  std::set<pid_t> workers;
  for (int item = 0; item < 100; ++item) {
    std::atomic<bool> ran = false;
    pool.submit([&] {
      {
        const MutexLock lock(mutex);
        workers.insert(::gettid());
      }
      ran = true;
    });
    ASSERT_TRUE(waitUntil([&ran] { return ran.load(); }));
  }
  // Two or three, as an item may come before the worker of the last one is waiting again.
  EXPECT_LE(workers.size(), 10U);
  pool.close();
  EXPECT_TRUE(threads.waitForAll(std::nullopt));
}

/// Counts the closures that hold it.
class Shutdown : public testing::Test {
 protected:
  long held() const { return token_.use_count() - 1; }

  std::shared_ptr<int> token_ = std::make_shared<int>(0);
};

TEST_F(Shutdown, DropsAndReleasesWhatHasNotBegunAndWaitsForWhatHas) {
  LinuxDispatch dispatch;
  std::atomic<bool> ended = false;
  std::atomic<int> laterRuns = 0;
  const auto later = [token = token_, &laterRuns] { ++laterRuns; };
  const auto begun = dispatch.makeSemaphore(0);
  const auto queue = dispatch.makeSerialQueue("queue", QualityOfService::unspecified);
  queue->async([&] {
    begun->signal();
    dispatch.makeSemaphore(0)->wait(50ms);
    ended = true;
  });
  ASSERT_TRUE(begun->wait(10s));
  queue->async(later);
  queue->asyncAfter(1h, later);
  dispatch.mainQueue().async(later);
  dispatch.mainQueue().asyncAfter(1h, later);
  dispatch.globalQueue(QualityOfService::utility).asyncAfter(1h, later);
  dispatch.scheduledTimer(1h, 0s, later);

  EXPECT_TRUE(dispatch.shutdown());
  EXPECT_TRUE(ended);
  EXPECT_EQ(laterRuns, 0);
  EXPECT_EQ(held(), 1) << "`later` itself is the only holder left";
}

TEST_F(Shutdown, LaterSubmissionsAreReleasedAtOnce) {
  LinuxDispatch dispatch;
  const auto queue = dispatch.makeSerialQueue("queue", QualityOfService::unspecified);
  EXPECT_TRUE(dispatch.shutdown());
  std::atomic<int> runs = 0;
  for (Queue* each : {queue.get(), &dispatch.mainQueue(),
                      &dispatch.globalQueue(QualityOfService::userInitiated)}) {
    each->async([token = token_, &runs] { ++runs; });
    each->asyncAfter(0s, [token = token_, &runs] { ++runs; });
  }
  EXPECT_EQ(held(), 0);
  EXPECT_TRUE(dispatch.shutdown());
  EXPECT_EQ(runs, 0);
}

TEST_F(Shutdown, DroppedItemMayHoldTheLastOwnerOfItsQueue) {
  LinuxDispatch dispatch;
  const auto begun = dispatch.makeSemaphore(0);
  const auto open = dispatch.makeSemaphore(0);
  auto queue = dispatch.makeSerialQueue("queue", QualityOfService::unspecified);
  Queue& borrowed = *queue;
  borrowed.async([begun, open] {
    begun->signal();
    open->wait(10s);
  });
  ASSERT_TRUE(begun->wait(10s));
  borrowed.async([token = token_, owner = std::move(queue)] {});
  EXPECT_FALSE(dispatch.shutdown(0s));
  open->signal();
  EXPECT_TRUE(dispatch.shutdown());
  EXPECT_EQ(held(), 0);
}

TEST_F(Shutdown, GivesUpOnARunningItemAfterTheGrace) {
  LinuxDispatch dispatch;
  const auto begun = dispatch.makeSemaphore(0);
  const auto open = dispatch.makeSemaphore(0);
  dispatch.globalQueue(QualityOfService::unspecified).async([begun, open] {
    begun->signal();
    open->wait(std::nullopt);
  });
  ASSERT_TRUE(begun->wait(10s));
  const Uptime start = dispatch.uptime();
  EXPECT_FALSE(dispatch.shutdown(50ms));
  EXPECT_GE(dispatch.uptime() - start, 50ms);
  open->signal();
  EXPECT_TRUE(dispatch.shutdown(10s));
}

TEST_F(Shutdown, TimerMayBeInvalidatedAfterwards) {
  std::shared_ptr<Timer> timer;
  {
    LinuxDispatch dispatch;
    timer = dispatch.scheduledTimer(1h, 0s, [token = token_] {});
  }
  EXPECT_EQ(held(), 1);
  timer->invalidate();
  EXPECT_EQ(held(), 0);
}

TEST_F(Shutdown, EndsEveryThread) {
  const std::ptrdiff_t before = threadsOfThisProcess();
  {
    LinuxDispatch dispatch;
    for (int number = 0; number < 4; ++number) {
      dispatch.startThread("thread", QualityOfService::utility, [] {});
      dispatch.makeSerialQueue("queue", QualityOfService::utility)->async([] {});
      dispatch.globalQueue(QualityOfService::utility).asyncAfter(0s, [] {});
    }
    EXPECT_GE(threadsOfThisProcess(), before);
  }
  EXPECT_EQ(threadsOfThisProcess(), before);
}

}  // namespace
}  // namespace talmo::test
