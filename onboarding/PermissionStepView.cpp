#include "onboarding/PermissionStepView.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "onboarding/SettingsToggleMock.h"
#include "onboarding/StepScaffold.h"
#include "onboarding/Tray.h"
#include "panel/Equalizer.h"
#include "panel/ViewParts.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

using Action = void (OnboardingModel::*)();

std::function<void()> calling(const std::shared_ptr<OnboardingModel>& model, Action action) {
  return [weak = std::weak_ptr(model), action] {
    if (const std::shared_ptr<OnboardingModel> self = weak.lock()) ((*self).*action)();
  };
}

View reassurance() {
  const auto chip = [](std::string identity, std::string text) {
    return horizontalView(std::move(identity), ViewRole::chip,
                          {textView("text", ViewRole::label, std::move(text))});
  };
  return horizontalView("reassurance", ViewRole::group,
                        {chip("catches", "Catches your media keys"),
                         chip("reads-nothing", "Can't read your screen or files")});
}

View waiting() {
  return horizontalView(
      "waiting", ViewRole::group,
      {equalizer(true), textView("text", ViewRole::detail, "Waiting for the switch.")});
}

View granted() {
  return horizontalView("granted", ViewRole::group,
                        {symbolView("symbol", ViewRole::successSymbol, "checkmark.circle"),
                         textView("text", ViewRole::label, "Accessibility access granted")});
}

View tapFailed() {
  return horizontalView(
      "tap-failed", ViewRole::warning,
      {symbolView("symbol", ViewRole::warningSymbol, "exclamationmark.triangle.fill"),
       verticalView("texts", ViewRole::group,
                    {textView("problem", ViewRole::body,
                              "Access is granted, but Talmo's key listener didn't come up."),
                     textView("remedy", ViewRole::label, "A quick relaunch sorts it out")})});
}

View help(const std::shared_ptr<OnboardingModel>& model) {
  return verticalView(
      "help", ViewRole::group,
      {textButtonView("reopen-settings", ViewRole::linkButton,
                      platform().wording().of("Can't find it? Reopen System Settings"),
                      calling(model, &OnboardingModel::openSystemSettings)),
       textButtonView("fix-and-retry", ViewRole::linkButton, "Still stuck? Fix and retry",
                      calling(model, &OnboardingModel::fixAndRetry))});
}

View primaryButton(const std::shared_ptr<OnboardingModel>& model) {
  if (model->showTapFailed.get()) {
    return textButtonView("quit-and-reopen", ViewRole::primaryButton, "Quit & Reopen Talmo",
                          calling(model, &OnboardingModel::quitAndReopen));
  }
  return textButtonView("open-settings", ViewRole::primaryButton,
                        platform().wording().of("Open System Settings"),
                        calling(model, &OnboardingModel::openSystemSettings));
}

}  // namespace

View permissionStepView(const std::shared_ptr<OnboardingModel>& model) {
  const bool isTrusted = model->isTrusted.get();
  std::vector<View> body{
      textView("explanation", ViewRole::body,
               platform().wording().of("macOS makes you flip this one yourself.")),
      settingsToggleMock(isTrusted)};
  if (isTrusted) {
    body.push_back(granted());
  } else {
    body.push_back(waiting());
  }
  if (model->showReopenHelper.get()) body.push_back(help(model));
  if (model->showTapFailed.get()) body.push_back(tapFailed());
  return stepScaffold("permission",
                      {textView("almost", ViewRole::headline, "Almost."),
                       textView("one-switch", ViewRole::headline, "One switch."), reassurance()},
                      std::move(body),
                      tray({textButtonView("later", ViewRole::ghostButton, "Later",
                                           calling(model, &OnboardingModel::skipPermission)),
                            primaryButton(model)}));
}

}  // namespace talmo
