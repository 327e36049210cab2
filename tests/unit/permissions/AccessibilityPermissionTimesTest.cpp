// When the trust of the program is looked at, in virtual time.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "permissions/AccessibilityPermission.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;

class AccessibilityPermissionTimesTest : public testing::TestWithParam<std::uint64_t> {
 protected:
  SimulatedDispatch& time() { return world_.time(); }
  int questions() { return world_.machine().accessibility().trustQuestions(); }
  void setTrusted(bool trusted) { world_.machine().accessibility().setTrusted(trusted); }
  void notify() { world_.machine().distributedNotifications().post("com.apple.accessibility.api"); }

  std::shared_ptr<AccessibilityPermission> monitoring(bool isTrusted) {
    setTrusted(isTrusted);
    auto permission = AccessibilityPermission::make();
    permission->onChange = [this](bool now) { changes.push_back(now); };
    permission->startMonitoring();
    return permission;
  }

  /// Runs until trust is looked at next; how long that took.
  Duration untilNextQuestion() {
    const int before = questions();
    const Uptime start = time().uptime();
    EXPECT_TRUE(time().runUntil([&] { return questions() > before; }, 60s));
    return time().uptime() - start;
  }

  std::vector<bool> changes;

 private:
  SimulatedWorld world_{GetParam()};
};

TEST_P(AccessibilityPermissionTimesTest, TrustIsPolledEveryTenSecondsWithFiveToSpare) {
  const auto permission = monitoring(true);
  EXPECT_THAT(untilNextQuestion(), AllOf(Ge(10s), Le(15s)));
  const int before = questions();
  time().run(100s);
  EXPECT_THAT(questions() - before, AllOf(Ge(9), Le(11)));
}

TEST_P(AccessibilityPermissionTimesTest, NoTrustIsPolledEveryThreeSecondsWithOneAndAHalfToSpare) {
  const auto permission = monitoring(false);
  EXPECT_THAT(untilNextQuestion(), AllOf(Ge(3s), Le(4500ms)));
  const int before = questions();
  time().run(30s);
  EXPECT_THAT(questions() - before, AllOf(Ge(9), Le(11)));
}

TEST_P(AccessibilityPermissionTimesTest, AGrantIsSeenByThePollAndSlowsItDown) {
  const auto permission = monitoring(false);
  setTrusted(true);
  time().run(2999ms);
  EXPECT_THAT(changes, IsEmpty());
  time().run(1501ms);
  EXPECT_THAT(changes, ElementsAre(true));
  const Uptime seen = time().uptime();
  untilNextQuestion();
  // The change came within the one and a half seconds before.
  EXPECT_THAT(time().uptime() - seen, AllOf(Ge(8500ms), Le(15s)));
  EXPECT_THAT(changes, ElementsAre(true));
}

TEST_P(AccessibilityPermissionTimesTest, AGrantIsSeenAQuarterOfASecondAfterTheNotice) {
  const auto permission = monitoring(false);
  setTrusted(true);
  notify();
  time().run(249ms);
  EXPECT_THAT(changes, IsEmpty());
  time().run(1ms);
  EXPECT_THAT(changes, ElementsAre(true));
  EXPECT_THAT(untilNextQuestion(), AllOf(Ge(10s), Le(15s)));
  EXPECT_THAT(changes, ElementsAre(true));
}

TEST_P(AccessibilityPermissionTimesTest, ARevocationIsSeenByThePollAndHurriesIt) {
  const auto permission = monitoring(true);
  setTrusted(false);
  time().run(9999ms);
  EXPECT_THAT(changes, IsEmpty());
  ASSERT_TRUE(time().runUntil([&] { return !changes.empty(); }, 5001ms));
  EXPECT_THAT(changes, ElementsAre(false));
  EXPECT_FALSE(permission->sawChangeWhileUntrusted());
  EXPECT_THAT(untilNextQuestion(), AllOf(Ge(3s), Le(4500ms)));
}

TEST_P(AccessibilityPermissionTimesTest, TheNewPollRunsBeforeTheOwnerIsTold) {
  const auto permission = monitoring(false);
  Uptime told;
  // An owner that takes its time, as one does that waits for a tap's thread.
  permission->onChange = [&](bool) {
    told = time().uptime();
    time().makeSemaphore(0)->wait(5s);
  };
  setTrusted(true);
  ASSERT_TRUE(time().runUntil([&] { return permission->isTrusted(); }, 5s));
  untilNextQuestion();
  EXPECT_THAT(time().uptime() - told, AllOf(Ge(10s), Le(15s)));
}

TEST_P(AccessibilityPermissionTimesTest, MonitoringThatStartsAgainReplacesTheTimer) {
  const auto permission = monitoring(true);
  time().run(6s);
  for (int round = 0; round < 4; ++round) permission->startMonitoring();
  EXPECT_THAT(untilNextQuestion(), AllOf(Ge(10s), Le(15s)));
  const int before = questions();
  time().run(100s);
  EXPECT_THAT(questions() - before, AllOf(Ge(9), Le(11)));
}

TEST_P(AccessibilityPermissionTimesTest, TwoNoticesInOneMomentAreTwoLooksAndOneChange) {
  const auto permission = monitoring(false);
  int suspicions = 0;
  permission->onStaleTrustSuspected = [&] { ++suspicions; };
  notify();
  notify();
  time().run(250ms);
  EXPECT_EQ(suspicions, 1);
  setTrusted(true);
  notify();
  notify();
  time().run(250ms);
  EXPECT_THAT(changes, ElementsAre(true));
  EXPECT_EQ(suspicions, 1);
}

TEST_P(AccessibilityPermissionTimesTest, AGrantByThePollEndsTheSuspicion) {
  const auto permission = monitoring(false);
  notify();
  time().run(1s);
  ASSERT_TRUE(permission->sawChangeWhileUntrusted());
  setTrusted(true);
  time().run(4500ms);
  EXPECT_FALSE(permission->sawChangeWhileUntrusted());
}

TEST_P(AccessibilityPermissionTimesTest, AnObjectThatIsGoneLooksNoMore) {
  auto permission = monitoring(true);
  time().run(5s);
  notify();
  time().run(100ms);
  permission.reset();
  const int before = questions();
  notify();
  time().run(60s);
  EXPECT_EQ(questions(), before);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AccessibilityPermissionTimesTest,
                         testing::Range<std::uint64_t>(0, 32));

/// Over all seeds, the polls are as late as they may be and no earlier than they should be.
TEST(AccessibilityPermissionTolerance, IsHalfTheInterval) {
  for (const bool isTrusted : {true, false}) {
    const Duration interval = isTrusted ? 10s : 3s;
    Duration latest = 0s;
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
      SimulatedWorld world(seed);
      world.machine().accessibility().setTrusted(isTrusted);
      const auto permission = AccessibilityPermission::make();
      permission->startMonitoring();
      const int before = world.machine().accessibility().trustQuestions();
      const Uptime start = world.time().uptime();
      ASSERT_TRUE(world.time().runUntil(
          [&] { return world.machine().accessibility().trustQuestions() > before; }, 60s));
      latest = std::max(latest, world.time().uptime() - start);
    }
    EXPECT_GT(latest, interval + interval * 2 / 5);
    EXPECT_LE(latest, interval + interval / 2);
  }
}

}  // namespace
}  // namespace talmo::test
