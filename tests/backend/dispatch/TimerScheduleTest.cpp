#include <chrono>
#include <cstdint>
#include <random>

#include <gtest/gtest.h>

#include "platform/linux/dispatch/TimerSchedule.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

Uptime at(Duration sinceStart) {
  return Uptime(sinceStart);
}

bool isOnGrid(Uptime instant, std::int64_t step) {
  return instant.time_since_epoch() % std::chrono::milliseconds(step) == Duration::zero();
}

TEST(TimerSchedule, WithoutToleranceTheDueIsKept) {
  EXPECT_EQ(coalescedInstant(at(1234567ns), 0ms), at(1234567ns));
  EXPECT_EQ(coalescedInstant(at(1234567ns), -5ms), at(1234567ns));
}

TEST(TimerSchedule, ToleranceThatHoldsNoWholeMillisecondLeavesTheDue) {
  EXPECT_EQ(coalescedInstant(at(1100us), 800us), at(1100us));
  EXPECT_EQ(coalescedInstant(at(1100us), 900us), at(2ms));
}

TEST(TimerSchedule, TakesTheCoarsestGridWithinTheTolerance) {
  EXPECT_EQ(coalescedInstant(at(1001ms), 100ms), at(1024ms));
  EXPECT_EQ(coalescedInstant(at(1025ms), 100ms), at(1088ms));
  EXPECT_EQ(coalescedInstant(at(1025ms), 200ms), at(1152ms));
  EXPECT_EQ(coalescedInstant(at(1024ms), 200ms), at(1024ms));
  EXPECT_EQ(coalescedInstant(at(1500ms), 2ms), at(1500ms));
  EXPECT_EQ(coalescedInstant(at(1501ms), 2ms), at(1502ms));
}

TEST(TimerSchedule, TimersWithSomeToleranceMeet) {
  // Three timers that come due within 20 ms of each other, each of which may be 100 ms late.
  const Uptime first = coalescedInstant(at(60'010ms), 100ms);
  EXPECT_EQ(coalescedInstant(at(60'021ms), 100ms), first);
  EXPECT_EQ(coalescedInstant(at(60'030ms), 100ms), first);
}

TEST(TimerSchedule, InstantIsNeverEarlyNorTooLateAndNoCoarserGridWouldDo) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> dues(1, 10'000'000'000'000);
  std::uniform_int_distribution<std::int64_t> tolerances(0, 500'000'000);
  for (int round = 0; round < 2000; ++round) {
    const Uptime due = at(Duration(dues(random)));
    const Duration tolerance(tolerances(random));
    const Uptime instant = coalescedInstant(due, tolerance);
    ASSERT_GE(instant, due);
    ASSERT_LE(instant, due + tolerance);
    std::int64_t step = 1;
    while (step < (std::int64_t{1} << 40) && isOnGrid(instant, step)) step *= 2;
    // `step` is the finest grid that the instant is not on: none of its points may lie in reach.
    const std::int64_t span = step * 1'000'000;
    const std::int64_t nanoseconds = due.time_since_epoch().count();
    const std::int64_t next = (nanoseconds + span - 1) / span * span;
    ASSERT_GT(at(Duration(next)), due + tolerance)
        << "due " << nanoseconds << " tolerance " << tolerance.count();
  }
}

TEST(TimerSchedule, NextDueIsOneIntervalLaterWhenNothingWasMissed) {
  EXPECT_EQ(nextDue(at(100ms), 20ms, at(100ms)), at(120ms));
  EXPECT_EQ(nextDue(at(100ms), 20ms, at(119ms)), at(120ms));
}

TEST(TimerSchedule, NextDueDoesNotDriftWhenAFiringIsLate) {
  Uptime due = at(100ms);
  for (int firing = 0; firing < 1000; ++firing) due = nextDue(due, 20ms, due + 13ms);
  EXPECT_EQ(due, at(100ms + 1000 * 20ms));
}

TEST(TimerSchedule, NextDueLeavesMissedPeriodsOutAndStaysOnTheSchedule) {
  EXPECT_EQ(nextDue(at(100ms), 20ms, at(120ms)), at(140ms));
  EXPECT_EQ(nextDue(at(100ms), 20ms, at(195ms)), at(200ms));
  EXPECT_EQ(nextDue(at(100ms), 1ms, at(24h)), at(24h + 1ms));
}

}  // namespace
}  // namespace talmo
