#include "tests/backend/interface/view/OnboardingStates.h"

#include <memory>
#include <optional>

#include "onboarding/OnboardingModel.h"
#include "onboarding/OnboardingView.h"
#include "platform/linux/LinuxWording.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedDispatch.h"
#include "players/TargetAppRegistry.h"
#include "tests/backend/interface/view/PaintedWorkspace.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

/// The fields are what differs between the states.
struct State {
  Step step = Step::permission;
  bool isTrusted = false;
  bool showReopenHelper = false;
  bool showTapFailed = false;
  std::optional<std::string> player = std::nullopt;
  std::optional<std::string> primer = std::nullopt;
};

View viewOf(const State& state) {
  const std::shared_ptr<OnboardingModel> model = OnboardingModel::make();
  model->step.set(state.step);
  model->isTrusted.set(state.isTrusted);
  model->showReopenHelper.set(state.showReopenHelper);
  model->showTapFailed.set(state.showTapFailed);
  if (state.player) model->routedPlayer.set(TargetAppRegistry::app(*state.player));
  model->automationPrimerPlayerName.set(state.primer);
  return onboardingView(model);
}

}  // namespace

std::map<std::string, View> onboardingStates() {
  SimulatedDispatch dispatch;
  SimulatedApplications applications;
  PaintedWorkspace workspace(applications, dispatch);
  LinuxWording wording;
  const TestPlatform platform(
      {.dispatch = &dispatch, .wording = &wording, .workspace = &workspace});
  for (const TargetApp& app : TargetAppRegistry::all()) {
    applications.install({.bundleID = app.bundleID, .name = app.displayName});
  }
  std::map<std::string, View> views;
  views["onboarding-waiting"] = viewOf({});
  views["onboarding-help"] = viewOf({.showReopenHelper = true});
  views["onboarding-granted"] = viewOf({.isTrusted = true});
  views["onboarding-tap-failed"] = viewOf({.isTrusted = true, .showTapFailed = true});
  views["onboarding-done"] = viewOf({.step = Step::done, .isTrusted = true, .player = "vlc"});
  views["onboarding-done-primer"] =
      viewOf({.step = Step::done, .isTrusted = true, .player = "spotify", .primer = "Spotify"});
  views["onboarding-done-without-player"] = viewOf({.step = Step::done, .isTrusted = true});
  return views;
}

}  // namespace talmo::test
