#include "tests/component/OnboardingModelTest.h"

#include <gmock/gmock.h>

#include "permissions/AutomationPermission.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using Events = SimulatedAppleEvents;

constexpr const char* granted = "Accessibility permission granted during onboarding";
constexpr const char* tapFailed = "tap failed to start despite grant; offering Quit & Reopen";

TEST_P(OnboardingModelTest, BeginsWithThePermission) {
  const auto model = waiting();
  EXPECT_EQ(model->step.get(), Step::permission);
  EXPECT_FALSE(model->isTrusted.get());
  EXPECT_FALSE(model->showReopenHelper.get());
  EXPECT_FALSE(model->showTapFailed.get());
  EXPECT_EQ(model->routedPlayer.get(), std::nullopt);
  EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(OnboardingModelTest, GoesStraightToTheEndWhenItIsTrustedAlready) {
  machine().applications().install({vlc, "VLC"});
  const auto model = make();
  model->begin();
  EXPECT_EQ(model->step.get(), Step::done);
  EXPECT_TRUE(model->isTrusted.get());
  EXPECT_EQ(model->routedPlayer.get().value().id, "vlc");
  // No timer, no observer: nothing asks again, and the owner took the keys by itself.
  notify();
  pass(2s);
  EXPECT_EQ(questions(), 1);
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(OnboardingModelTest, AGrantHasTheOwnerTakeTheKeysAndGoesOn) {
  const auto model = waiting();
  Step stepThen = Step::done;
  bool wasTrusted = false;
  model->onPermissionGranted = [&] {
    calls.emplace_back("granted");
    stepThen = model->step.get();
    wasTrusted = model->isTrusted.get();
    return true;
  };
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return model->step.get() == Step::done; }));
  EXPECT_THAT(calls, ElementsAre("granted"));
  EXPECT_EQ(stepThen, Step::permission);
  EXPECT_TRUE(wasTrusted);
  EXPECT_FALSE(model->showTapFailed.get());
  EXPECT_THAT(log(), ElementsAre(granted));
}

TEST_P(OnboardingModelTest, AGrantThatIsNoticedTwiceActsOnce) {
  tapRuns = false;
  const auto model = waiting();
  setTrusted(true);
  notify();
  notify();
  ASSERT_TRUE(runUntil([&] { return model->showTapFailed.get(); }));
  const int asked = questions();
  notify();
  pass(2s);
  EXPECT_THAT(calls, ElementsAre("granted"));
  EXPECT_EQ(questions(), asked);
  EXPECT_THAT(log(), ElementsAre(granted, tapFailed));
}

TEST_P(OnboardingModelTest, ATapThatFailsOffersAReopeningAndStays) {
  tapRuns = false;
  const auto model = waiting();
  model->showReopenHelper.set(true);
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return model->showTapFailed.get(); }));
  EXPECT_EQ(model->step.get(), Step::permission);
  EXPECT_FALSE(model->showReopenHelper.get());
  EXPECT_TRUE(model->isTrusted.get());

  model->quitAndReopen();
  ASSERT_TRUE(runUntil([&] { return machine().application().terminations() == 1; }));
  EXPECT_EQ(machine().workspace().newInstances().size(), 1U);
}

TEST_P(OnboardingModelTest, AnOwnerThatTakesNoKeysCountsAsOneWhoseTapRuns) {
  const auto model = waiting();
  model->onPermissionGranted = nullptr;
  setTrusted(true);
  EXPECT_TRUE(runUntil([&] { return model->step.get() == Step::done; }));
  EXPECT_THAT(log(), ElementsAre(granted));
}

TEST_P(OnboardingModelTest, OpensTheSettings) {
  const auto model = waiting();
  model->openSystemSettings();
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  EXPECT_EQ(model->step.get(), Step::permission);
}

TEST_P(OnboardingModelTest, FixesAndRetriesAndSaysSo) {
  const auto model = waiting();
  model->fixAndRetry();
  EXPECT_THAT(log(), ElementsAre("user-initiated Accessibility reset + reopen from onboarding"));
  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedURLs().empty(); }));
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  const auto launches = machine().childProcesses().launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].parameters.executable, "/usr/bin/tccutil");
}

TEST_P(OnboardingModelTest, CanGoOnWithoutThePermissionAndStillTakesALaterGrant) {
  const auto model = waiting();
  model->skipPermission();
  EXPECT_EQ(model->step.get(), Step::done);
  EXPECT_FALSE(model->isTrusted.get());
  EXPECT_THAT(calls, IsEmpty());
  setTrusted(true);
  ASSERT_TRUE(runUntil([&] { return model->isTrusted.get(); }));
  EXPECT_THAT(calls, ElementsAre("granted"));
  EXPECT_EQ(model->step.get(), Step::done);
}

TEST_P(OnboardingModelTest, FinishesOnceAndClosesTheWindowFirst) {
  const auto model = waiting();
  model->finish();
  model->finish();
  EXPECT_THAT(calls, ElementsAre("dismiss", "finished"));
}

TEST_P(OnboardingModelTest, FinishesOnceAlsoWhenTheClosingWindowFinishesToo) {
  const auto model = waiting();
  model->onRequestDismiss = [&] {
    calls.emplace_back("dismiss");
    model->finish();
  };
  model->finish();
  EXPECT_THAT(calls, ElementsAre("dismiss", "finished"));
}

TEST_P(OnboardingModelTest, MayBeLetGoOfByTheCallbacksOfItsEnd) {
  auto model = waiting();
  OnboardingModel& last = *model;
  model->onRequestDismiss = [&] {
    calls.emplace_back("dismiss");
    model.reset();
  };
  last.finish();
  EXPECT_THAT(calls, ElementsAre("dismiss", "finished"));
}

TEST_P(OnboardingModelTest, FinishesWithoutAnybodyToTell) {
  const auto model = OnboardingModel::make();
  model->finish();
  EXPECT_EQ(model->step.get(), Step::permission);
}

TEST_P(OnboardingModelTest, RoutesToTheDefaultPlayerOrToNone) {
  const auto none = make();
  none->skipPermission();
  EXPECT_EQ(none->routedPlayer.get(), std::nullopt);
  machine().applications().install({vlc, "VLC"});
  const auto one = make();
  one->skipPermission();
  EXPECT_EQ(one->routedPlayer.get().value().displayName, "VLC");
}

TEST_P(OnboardingModelTest, APlayerWithoutAppleEventsIsNeverAskedFor) {
  machine().applications().install({vlc, "VLC"});
  machine().applications().launch(vlc);
  machine().appleEvents().setConsent(vlc, Events::wouldRequireConsent);
  const auto model = make();
  model->skipPermission();
  pass(1s);
  EXPECT_THAT(machine().appleEvents().queries(), IsEmpty());
  EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
}

TEST_P(OnboardingModelTest, ACachedOpenAnswerIsToldOfAtOnce) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, Events::wouldRequireConsent);
  AutomationPermission::refreshStatus(spotify, {});
  ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
  const auto model = make();
  model->skipPermission();
  EXPECT_THAT(model->automationPrimerPlayerName.get(), Optional(std::string("Spotify")));
  EXPECT_EQ(machine().appleEvents().queries().size(), 1U);
}

TEST_P(OnboardingModelTest, ACachedOtherAnswerIsNotToldOfNorAskedForAgain) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  for (const std::int32_t status : {Events::granted, Events::notPermitted}) {
    AutomationPermission::invalidateAll();
    machine().appleEvents().setConsent(spotify, status);
    AutomationPermission::refreshStatus(spotify, {});
    ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
    const std::size_t asked = machine().appleEvents().queries().size();
    const auto model = make();
    model->skipPermission();
    pass(500ms);
    EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
    EXPECT_EQ(machine().appleEvents().queries().size(), asked);
  }
}

TEST_P(OnboardingModelTest, ALateOpenAnswerIsToldOfWhenItComesWithoutAPrompt) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, Events::wouldRequireConsent);
  machine().appleEvents().setQueryDuration(200ms);
  const auto model = make();
  model->skipPermission();
  EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
  EXPECT_TRUE(runUntil([&] { return model->automationPrimerPlayerName.get() == "Spotify"; }));
  EXPECT_THAT(machine().appleEvents().queries(), ElementsAre(Events::Query{spotify, false}));
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
}

TEST_P(OnboardingModelTest, ALateOtherAnswerIsNotToldOf) {
  machine().applications().install({spotify, "Spotify"});
  const auto model = make();
  model->skipPermission();
  ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
}

TEST_P(OnboardingModelTest, ALateAnswerThatComesInAnotherStepIsNotToldOf) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  machine().appleEvents().setConsent(spotify, Events::wouldRequireConsent);
  const auto model = make();
  model->skipPermission();
  model->step.set(Step::permission);
  ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(model->automationPrimerPlayerName.get(), std::nullopt);
}

TEST_P(OnboardingModelTest, AModelThatIsGoneDoesNothing) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  auto model = waiting();
  // A poll, a notice's look and an answer are all on their way.
  model->skipPermission();
  notify();
  ASSERT_TRUE(world().runMainQueue());
  const std::weak_ptr<OnboardingModel> weak = model;
  model.reset();
  ASSERT_TRUE(weak.expired());
  setTrusted(true);
  const int asked = questions();
  notify();
  pass(2s);
  EXPECT_EQ(questions(), asked);
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
