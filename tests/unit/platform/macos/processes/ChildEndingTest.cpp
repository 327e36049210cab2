#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/macos/processes/ChildEnding.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ChildTermination first{ChildTermination::Reason::exit, 3};
constexpr ChildTermination second{ChildTermination::Reason::uncaughtSignal, 15};

/// An ending whose work runs when the test says so.
class ChildEndingTest : public testing::Test {
 protected:
  ChildEnding::Handler handler() {
    return [this](const ChildTermination& termination) { told_.push_back(termination); };
  }

  void runPosted() {
    for (const auto& work : std::exchange(posted_, {})) work();
  }

  std::vector<std::function<void()>> posted_;
  std::vector<ChildTermination> told_;
  const std::shared_ptr<ChildEnding> ending_ = std::make_shared<ChildEnding>(
      [this](std::function<void()> work) { posted_.push_back(std::move(work)); });
};

TEST_F(ChildEndingTest, IsToldToItsHandlerSoonAndOnce) {
  ending_->setHandler(handler());
  EXPECT_FALSE(ending_->isTold());
  ending_->tell(first);
  EXPECT_TRUE(ending_->isTold());
  EXPECT_THAT(told_, IsEmpty());
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
  ending_->tell(first);
  runPosted();
  EXPECT_THAT(told_, SizeIs(1));
}

TEST_F(ChildEndingTest, CountsTheFirstTimeItIsTold) {
  ending_->setHandler(handler());
  ending_->tell(first);
  ending_->tell(second);
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
}

TEST_F(ChildEndingTest, IsToldToAHandlerThatComesLate) {
  ending_->tell(second);
  EXPECT_THAT(posted_, IsEmpty());
  ending_->setHandler(handler());
  runPosted();
  EXPECT_THAT(told_, ElementsAre(second));
}

TEST_F(ChildEndingTest, IsToldToTheLastHandlerOnly) {
  ending_->setHandler([](const ChildTermination&) { FAIL() << "it was replaced"; });
  ending_->setHandler(handler());
  ending_->tell(first);
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
}

TEST_F(ChildEndingTest, DoesNotBeginAHandlerThatWasTakenAwayMeanwhile) {
  ending_->setHandler(handler());
  ending_->tell(first);
  ending_->setHandler(nullptr);
  runPosted();
  EXPECT_THAT(told_, IsEmpty());
  ending_->setHandler(handler());
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
}

TEST_F(ChildEndingTest, MaySetAnotherHandlerInItsHandler) {
  ending_->setHandler([this](const ChildTermination&) { ending_->setHandler(handler()); });
  ending_->tell(first);
  runPosted();
  EXPECT_THAT(told_, IsEmpty());
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
}

TEST_F(ChildEndingTest, OutlivesItsOwnerUntilItsHandlerWasCalled) {
  auto ending = std::make_shared<ChildEnding>(
      [this](std::function<void()> work) { posted_.push_back(std::move(work)); });
  ending->setHandler(handler());
  ending->tell(first);
  ending = nullptr;
  runPosted();
  EXPECT_THAT(told_, ElementsAre(first));
}

TEST_F(ChildEndingTest, LetsGoOfWhatAHandlerHeld) {
  const auto held = std::make_shared<int>(0);
  ending_->setHandler([held](const ChildTermination&) {});
  EXPECT_EQ(held.use_count(), 2);
  ending_->tell(first);
  runPosted();
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace talmo::test
