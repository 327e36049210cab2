#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "onboarding/OnboardingView.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/support/ViewOutline.h"
#include "tests/unit/onboarding/ViewReading.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class OnboardingViewTest : public testing::Test {
 protected:
  static constexpr const char* settingsURL =
      "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

  View view() { return onboardingView(model_); }

  /// Presses the button with that text.
  void press(const std::string& text) {
    const View shown = view();
    const View* const button = buttonWith(shown, text);
    ASSERT_NE(button, nullptr) << text;
    button->action();
  }

  /// Of each segment, whether it is filled.
  std::vector<bool> segments() {
    std::vector<bool> found;
    visit(view(), [&](const View& part) {
      if (part.kind == ViewKind::segment) found.push_back(part.isOn);
    });
    return found;
  }

  bool isSwitchOn() {
    const View shown = view();
    const View* const toggle = partOf(shown, ViewKind::toggle);
    EXPECT_NE(toggle, nullptr);
    return toggle != nullptr && toggle->isOn;
  }

  void route(const char* id) { model_->routedPlayer.set(TargetAppRegistry::app(id)); }

  SimulatedPlatform& machine() { return world_.machine(); }

  SimulatedWorld world_;
  std::shared_ptr<OnboardingModel> model_ = OnboardingModel::make();
};

TEST_F(OnboardingViewTest, AsksForTheSwitch) {
  EXPECT_THAT(
      texts(view()),
      ElementsAre("Almost.", "One switch.", "Catches your media keys",
                  "Can't read your screen or files", "macOS makes you flip this one yourself.",
                  "Talmo", "Waiting for the switch.", "Later", "Open System Settings"));
  EXPECT_THAT(symbolsOf(view()), IsEmpty());
  EXPECT_THAT(segments(), ElementsAre(true, false));
  EXPECT_FALSE(isSwitchOn());
}

TEST_F(OnboardingViewTest, OpensTheSettingsAndGoesOnLater) {
  press("Open System Settings");
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  EXPECT_EQ(model_->step.get(), Step::permission);
  press("Later");
  EXPECT_EQ(model_->step.get(), Step::done);
}

TEST_F(OnboardingViewTest, HelpsWhoeverDoesNotFindTheSwitch) {
  model_->showReopenHelper.set(true);
  EXPECT_THAT(
      texts(view()),
      ElementsAre("Almost.", "One switch.", "Catches your media keys",
                  "Can't read your screen or files", "macOS makes you flip this one yourself.",
                  "Talmo", "Waiting for the switch.", "Can't find it? Reopen System Settings",
                  "Still stuck? Fix and retry", "Later", "Open System Settings"));
  press("Can't find it? Reopen System Settings");
  EXPECT_THAT(machine().workspace().openedURLs(), ElementsAre(settingsURL));
  press("Still stuck? Fix and retry");
  EXPECT_THAT(machine().log().messages("onboarding"),
              ElementsAre("user-initiated Accessibility reset + reopen from onboarding"));
}

TEST_F(OnboardingViewTest, SaysThatTheSwitchIsOn) {
  model_->isTrusted.set(true);
  EXPECT_THAT(texts(view()), Contains("Accessibility access granted"));
  EXPECT_THAT(texts(view()), Not(Contains("Waiting for the switch.")));
  EXPECT_THAT(symbolsOf(view()), ElementsAre("checkmark.circle"));
  EXPECT_TRUE(isSwitchOn());
}

TEST_F(OnboardingViewTest, OffersAReopeningWhenTheSwitchDidNotHelp) {
  model_->isTrusted.set(true);
  model_->showTapFailed.set(true);
  EXPECT_THAT(
      texts(view()),
      ElementsAre("Almost.", "One switch.", "Catches your media keys",
                  "Can't read your screen or files", "macOS makes you flip this one yourself.",
                  "Talmo", "Accessibility access granted",
                  "Access is granted, but Talmo's key listener didn't come up.",
                  "A quick relaunch sorts it out", "Later", "Quit & Reopen Talmo"));
  EXPECT_THAT(symbolsOf(view()), ElementsAre("checkmark.circle", "exclamationmark.triangle.fill"));
  press("Quit & Reopen Talmo");
  EXPECT_EQ(machine().workspace().newInstances().size(), 1U);
}

TEST_F(OnboardingViewTest, SaysWhereTheKeysGo) {
  machine().applications().install({"com.spotify.client", "Spotify"});
  model_->step.set(Step::done);
  route("spotify");
  EXPECT_THAT(texts(view()), ElementsAre("Done.", "Spotify", "Your keys route here now",
                                         "Play/pause now plays and pauses.",
                                         "Change it anytime from the menu bar", "Start listening"));
  EXPECT_THAT(symbolsOf(view()),
              ElementsAre("checkmark.circle.fill", "slider.horizontal.3", "arrow.right"));
  EXPECT_THAT(segments(), ElementsAre(false, true));
  const View shown = view();
  const View* const icon = partOf(shown, ViewKind::picture);
  ASSERT_NE(icon, nullptr);
  EXPECT_TRUE(icon->image.has_value());
}

TEST_F(OnboardingViewTest, TellsOfTheQuestionThatWillCome) {
  model_->step.set(Step::done);
  route("spotify");
  model_->automationPrimerPlayerName.set("Spotify");
  EXPECT_THAT(texts(view()), Contains("macOS will ask once to let Talmo talk to Spotify"));
}

TEST_F(OnboardingViewTest, SaysWhatToDoWithoutAPlayer) {
  model_->step.set(Step::done);
  EXPECT_THAT(texts(view()), ElementsAre("Done.", "Install one and Talmo finds it",
                                         "Change it anytime from the menu bar", "Start listening"));
}

TEST_F(OnboardingViewTest, FinishesOnce) {
  int finishes = 0;
  model_->onFinished = [&] { ++finishes; };
  model_->step.set(Step::done);
  press("Start listening");
  press("Start listening");
  EXPECT_EQ(finishes, 1);
}

TEST_F(OnboardingViewTest, HasOnePrimaryButtonInEveryState) {
  const auto primaryButtons = [&] {
    int count = 0;
    visit(view(), [&](const View& part) {
      if (part.role == ViewRole::primaryButton) ++count;
    });
    return count;
  };
  EXPECT_EQ(primaryButtons(), 1);
  model_->showReopenHelper.set(true);
  EXPECT_EQ(primaryButtons(), 1);
  model_->showTapFailed.set(true);
  EXPECT_EQ(primaryButtons(), 1);
  model_->step.set(Step::done);
  EXPECT_EQ(primaryButtons(), 1);
}

TEST_F(OnboardingViewTest, ButtonsOfAModelThatIsGoneDoNothing) {
  View permission = view();
  model_->step.set(Step::done);
  View done = view();
  model_.reset();
  for (const View* shown : {&permission, &done}) {
    visit(*shown, [](const View& part) {
      if (part.action) part.action();
    });
  }
  EXPECT_THAT(machine().workspace().openedURLs(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
