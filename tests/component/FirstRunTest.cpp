#include "tests/component/FirstRunTest.h"

#include <gmock/gmock.h>

#include "onboarding/OnboardingWindowController.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* tapIsRunning = "Event tap running";
constexpr const char* tapHasFailed = "Event tap creation failed; treating as missing permission";

TEST_P(FirstRunTest, ItsWindowIsMadeAsItIsMeant) {
  const auto controller = OnboardingWindowController::make({}, {});
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->parameters(), (WindowParameters{.title = "Welcome to Talmo",
                                                      .styleMask = 0x8003,
                                                      .contentSize = controller->size,
                                                      .isTitleBarTransparent = true,
                                                      .isTitleHidden = true,
                                                      .isMovableByBackground = true,
                                                      .isReleasedWhenClosed = false,
                                                      .isOpaque = false,
                                                      .hasClearBackground = true,
                                                      .acceptsFirstMouse = true}));
  EXPECT_THAT(window()->calls(), ElementsAre("center"));
  EXPECT_FALSE(window()->isVisible());
  EXPECT_EQ(machine().accessibility().trustQuestions(), 0);
}

TEST_P(FirstRunTest, ItsWindowIsCentredThenTheApplicationActivatedThenItComesToTheFront) {
  const auto controller = OnboardingWindowController::make({}, {});
  controller->show();
  EXPECT_THAT(window()->calls(), ElementsAre("center", "center", "activate", "front"));
  EXPECT_EQ(machine().application().activations(), 1);
  EXPECT_TRUE(window()->isVisible());
}

TEST_P(FirstRunTest, ItsWindowShowsTheRightStepFromItsFirstMomentAndFollowsTheModel) {
  setTrusted(false);
  const auto controller = OnboardingWindowController::make({}, {});
  controller->show();
  EXPECT_EQ(window()->content().children.back().identity, "permission");
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return window()->content().children.back().identity == "done"; }));

  const auto another = OnboardingWindowController::make({}, {});
  another->show();
  EXPECT_EQ(machine().windows().windows().back()->content().children.back().identity, "done");
}

TEST_P(FirstRunTest, SeveralChangesAreOneNewContent) {
  setTrusted(false);
  const auto controller = OnboardingWindowController::make({}, {});
  controller->show();
  ASSERT_TRUE(world().runMainQueue());
  const int before = window()->contentChanges();
  ASSERT_TRUE(window()->press("later"));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(window()->contentChanges(), before + 1);
}

TEST_P(FirstRunTest, ItsOwnerIsAskedForTheKeys) {
  setTrusted(false);
  int asked = 0;
  const auto controller = OnboardingWindowController::make(
      [&] {
        ++asked;
        return false;
      },
      {});
  controller->show();
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return asked == 1; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(window()->content().children.back().identity, "permission");
}

TEST_P(FirstRunTest, ClosingTheWindowCountsAsFinishing) {
  int finished = 0;
  const auto controller = OnboardingWindowController::make({}, [&] { ++finished; });
  controller->show();
  window()->close();
  EXPECT_EQ(finished, 1);
  window()->close();
  EXPECT_EQ(finished, 1);
}

TEST_P(FirstRunTest, FinishingClosesTheWindowFirstAndMayLetGoOfAll) {
  std::shared_ptr<OnboardingWindowController> controller;
  int finished = 0;
  bool wasClosed = false;
  controller = OnboardingWindowController::make({}, [&] {
    ++finished;
    wasClosed = !window()->isVisible();
    controller.reset();
  });
  controller->show();
  ASSERT_TRUE(window()->press("start"));
  EXPECT_EQ(finished, 1);
  EXPECT_TRUE(wasClosed);
  EXPECT_EQ(window(), nullptr);
}

TEST_P(FirstRunTest, AControllerThatIsGoneTakesItsWindowAlongAndTellsNobody) {
  setTrusted(false);
  int calls = 0;
  auto controller = OnboardingWindowController::make(
      [&] {
        ++calls;
        return true;
      },
      [&] { ++calls; });
  controller->show();
  // A rendering is on its way.
  ASSERT_TRUE(window()->press("later"));
  controller.reset();
  EXPECT_EQ(window(), nullptr);
  setTrusted(true);
  notify();
  pass(1s);
  EXPECT_EQ(calls, 0);
}

// The coordinator.

TEST_P(FirstRunTest, ComesOnAMachineThatNeverSawIt) {
  setTrusted(false);
  const auto coordinator = started();
  ASSERT_NE(window(), nullptr);
  EXPECT_TRUE(window()->isVisible());
  EXPECT_EQ(window()->content().children.back().identity, "permission");
  EXPECT_FALSE(coordinator->tap().isRunning());
  EXPECT_TRUE(isWarned());
  // Its window asks, so the system does not.
  EXPECT_EQ(machine().accessibility().prompts(), 0);
  EXPECT_FALSE(Preferences::hasCompletedOnboarding());
  EXPECT_THAT(log(), ElementsAre("First launch; showing onboarding",
                                 "Routing media keys automatically (follows what is playing)"));
}

TEST_P(FirstRunTest, ComesWithTheTapRunningWhereItCan) {
  const auto coordinator = started();
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->content().children.back().identity, "done");
  EXPECT_TRUE(coordinator->tap().isRunning());
  EXPECT_FALSE(isWarned());
  EXPECT_THAT(log(), ElementsAre("First launch; showing onboarding", tapIsRunning,
                                 "Routing media keys automatically (follows what is playing)"));
}

TEST_P(FirstRunTest, NeverComesAgain) {
  auto coordinator = started();
  ASSERT_TRUE(window()->press("start"));
  EXPECT_TRUE(Preferences::hasCompletedOnboarding());
  EXPECT_EQ(window(), nullptr);
  coordinator.reset();
  coordinator = started();
  EXPECT_EQ(window(), nullptr);
  EXPECT_THAT(log(), Contains("Accessibility permission at launch: true"));
}

TEST_P(FirstRunTest, NeverComesAgainAfterItsWindowWasClosed) {
  setTrusted(false);
  const auto coordinator = started();
  window()->close();
  EXPECT_TRUE(Preferences::hasCompletedOnboarding());
  EXPECT_EQ(window(), nullptr);
  EXPECT_TRUE(isWarned());
  EXPECT_FALSE(coordinator->tap().isRunning());
}

TEST_P(FirstRunTest, AGrantStartsTheTapAndGoesOn) {
  setTrusted(false);
  const auto coordinator = started();
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return window()->content().children.back().identity == "done"; }));
  EXPECT_TRUE(coordinator->tap().isRunning());
  EXPECT_EQ(machine().eventTap().requests().size(), 1U);
  // The coordinator's own look at the permission comes later.
  ASSERT_TRUE(runUntil([&] { return coordinator->permission().isTrusted(); }));
  EXPECT_TRUE(runUntil([&] { return !isWarned(); }));
  EXPECT_EQ(machine().eventTap().requests().size(), 1U);
}

TEST_P(FirstRunTest, AGrantWithoutATapOffersAReopening) {
  setTrusted(false);
  machine().eventTap().setTrusted(false);
  const auto coordinator = started();
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().requests().size() == 1; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(window()->content().children.back().identity, "permission");
  EXPECT_TRUE(isWarned());
  EXPECT_THAT(log(), Contains(tapHasFailed));
  EXPECT_TRUE(window()->press("quit-and-reopen"));
}

TEST_P(FirstRunTest, ItsEndTriesTheTapOnceMore) {
  machine().eventTap().setTrusted(false);
  const auto coordinator = started();
  ASSERT_FALSE(coordinator->tap().isRunning());
  EXPECT_TRUE(isWarned());
  machine().eventTap().setTrusted(true);
  ASSERT_TRUE(window()->press("start"));
  EXPECT_TRUE(coordinator->tap().isRunning());
  EXPECT_FALSE(isWarned());
  EXPECT_EQ(machine().eventTap().requests().size(), 2U);
}

TEST_P(FirstRunTest, ItsEndLeavesATapThatRunsAsItIs) {
  const auto coordinator = started();
  ASSERT_TRUE(window()->press("start"));
  EXPECT_TRUE(coordinator->tap().isRunning());
  EXPECT_EQ(machine().eventTap().requests().size(), 1U);
}

TEST_P(FirstRunTest, ItsEndKeepsTheWarningOfATapThatFailsAgain) {
  machine().eventTap().setTrusted(false);
  const auto coordinator = started();
  ASSERT_TRUE(window()->press("start"));
  EXPECT_TRUE(isWarned());
  EXPECT_TRUE(Preferences::hasCompletedOnboarding());
}

TEST_P(FirstRunTest, GoesWithItsCoordinator) {
  setTrusted(false);
  auto coordinator = started();
  coordinator.reset();
  EXPECT_EQ(window(), nullptr);
  setTrusted(true);
  notify();
  pass(1s);
  EXPECT_THAT(machine().eventTap().requests(), IsEmpty());
  EXPECT_FALSE(Preferences::hasCompletedOnboarding());
}

TEST_P(FirstRunTest, HelpersOfAnEarlierRunAreEndedAtEveryStart) {
  const auto coordinator = started();
  ASSERT_TRUE(runUntil([&] { return !machine().childProcesses().launches().empty(); }));
  const auto launches = machine().childProcesses().launches();
  EXPECT_EQ(launches.front().parameters,
            (ChildProcessParameters{.executable = "/usr/bin/pkill",
                                    .arguments = {"-f", SimulatedBundle::adapterScript},
                                    .standardOutput = ChildOutput::nullDevice,
                                    .standardError = ChildOutput::nullDevice}));
}

TEST_P(FirstRunTest, NothingIsEndedWhereThereIsNoHelper) {
  machine().bundle().setResource("mediaremote-adapter.pl", std::nullopt);
  const auto coordinator = started();
  pass(100ms);
  EXPECT_THAT(machine().childProcesses().launches(), IsEmpty());
}

TEST_P(FirstRunTest, TheStartDoesNotWaitForTheEndOfTheHelpers) {
  machine().childProcesses().setPrograms(
      [](const ChildProcessParameters&) { return SimulatedChildScript().liveOn(); });
  const Uptime before = machine().dispatch().uptime();
  const auto coordinator = started();
  EXPECT_LT(machine().dispatch().uptime() - before, 5s);
  EXPECT_TRUE(runUntil([&] { return !machine().childProcesses().running().empty(); }));
}

TEST_P(FirstRunTest, TheUpdaterIsThereFromTheStart) {
  machine().bundle().setInfo("SUFeedURL", "https://example.org/feed.xml");
  const auto coordinator = started();
  EXPECT_EQ(machine().softwareUpdate().started(), 1);
}

}  // namespace
}  // namespace talmo::test
