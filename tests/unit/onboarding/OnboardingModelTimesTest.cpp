// When the first run looks for the permission and when it helps, in virtual time.

#include <chrono>
#include <cstdint>
#include <memory>

#include <gtest/gtest.h>

#include "onboarding/OnboardingModel.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

class OnboardingModelTimesTest : public testing::TestWithParam<std::uint64_t> {
 protected:
  OnboardingModelTimesTest() { accessibility().setTrusted(false); }

  SimulatedDispatch& time() { return world_.time(); }
  SimulatedAccessibility& accessibility() { return world_.machine().accessibility(); }
  int questions() { return accessibility().trustQuestions(); }
  void notify() { world_.machine().distributedNotifications().post("com.apple.accessibility.api"); }

 private:
  SimulatedWorld world_{GetParam()};
};

TEST_P(OnboardingModelTimesTest, LooksForThePermissionEveryThreeQuartersOfASecond) {
  const auto model = OnboardingModel::make();
  model->begin();
  EXPECT_EQ(questions(), 1);
  time().run(749ms);
  EXPECT_EQ(questions(), 1);
  time().run(1ms);
  EXPECT_EQ(questions(), 2);
  time().run(75s);
  EXPECT_EQ(questions(), 102);
}

TEST_P(OnboardingModelTimesTest, HelpsAfterHalfAMinuteOnceAndForAll) {
  const auto model = OnboardingModel::make();
  model->begin();
  int changes = 0;
  model->showReopenHelper.observe([&](bool) { ++changes; });
  time().run(29999ms);
  EXPECT_FALSE(model->showReopenHelper.get());
  time().run(1ms);
  EXPECT_TRUE(model->showReopenHelper.get());
  time().run(120s);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(model->step.get(), Step::permission);
}

TEST_P(OnboardingModelTimesTest, BeginningAgainStartsBothTimersAnewAndListensOnce) {
  const auto model = OnboardingModel::make();
  model->begin();
  time().run(20s);
  model->begin();
  int before = questions();
  time().run(749ms);
  EXPECT_EQ(questions(), before);
  time().run(29250ms);
  EXPECT_FALSE(model->showReopenHelper.get());
  time().run(1ms);
  EXPECT_TRUE(model->showReopenHelper.get());
  model->begin();
  EXPECT_FALSE(model->showReopenHelper.get());

  before = questions();
  time().run(100ms);
  notify();
  time().run(300ms);
  EXPECT_EQ(questions(), before + 1);
}

TEST_P(OnboardingModelTimesTest, LooksAQuarterOfASecondAfterTheSystemsNotice) {
  const auto model = OnboardingModel::make();
  model->begin();
  time().run(100ms);
  accessibility().setTrusted(true);
  notify();
  time().run(249ms);
  EXPECT_FALSE(model->isTrusted.get());
  time().run(1ms);
  EXPECT_TRUE(model->isTrusted.get());
  EXPECT_EQ(model->step.get(), Step::done);
}

TEST_P(OnboardingModelTimesTest, SeesAGrantByThePollWithinThreeQuartersOfASecond) {
  const auto model = OnboardingModel::make();
  model->begin();
  time().run(10s);
  accessibility().setTrusted(true);
  time().run(750ms);
  EXPECT_TRUE(model->isTrusted.get());
}

TEST_P(OnboardingModelTimesTest, AGrantEndsThePollAndTheHelpThatWasToCome) {
  const auto model = OnboardingModel::make();
  model->onPermissionGranted = [] { return false; };
  model->begin();
  time().run(29800ms);
  accessibility().setTrusted(true);
  notify();
  // The notice's look and a poll both fall into this time.
  time().run(1s);
  ASSERT_TRUE(model->showTapFailed.get());
  const int before = questions();
  time().run(60s);
  EXPECT_EQ(questions(), before);
  EXPECT_EQ(model->showReopenHelper.get(), false);
}

TEST_P(OnboardingModelTimesTest, AModelThatIsGoneLooksAndHelpsNoMore) {
  auto model = OnboardingModel::make();
  bool isHelped = false;
  model->showReopenHelper.observe([&](bool helps) { isHelped = isHelped || helps; });
  model->begin();
  time().run(10s);
  notify();
  time().run(100ms);
  model.reset();
  const int before = questions();
  notify();
  time().run(60s);
  EXPECT_EQ(questions(), before);
  EXPECT_FALSE(isHelped);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OnboardingModelTimesTest, testing::Range<std::uint64_t>(0, 8));

}  // namespace
}  // namespace talmo::test
