#include "onboarding/DoneStepView.h"

#include <utility>
#include <vector>

#include "onboarding/StepScaffold.h"
#include "onboarding/Tray.h"
#include "panel/RowIcon.h"
#include "panel/ViewParts.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

View route(const TargetApp& player) {
  return horizontalView(
      "route", ViewRole::card,
      {rowIcon(player, ViewRole::artwork),
       verticalView("texts", ViewRole::group,
                    {textView("name", ViewRole::title, player.displayName),
                     textView("route", ViewRole::detail, "Your keys route here now")})});
}

View noPlayer() {
  return horizontalView("route", ViewRole::card,
                        {symbolView("icon", ViewRole::artwork, "app.dashed"),
                         textView("install", ViewRole::title, "Install one and Talmo finds it")});
}

View hint() {
  return horizontalView(
      "hint", ViewRole::group,
      {symbolView("symbol", ViewRole::symbol, "slider.horizontal.3"),
       textView("text", ViewRole::detail, "Change it anytime from the menu bar")});
}

View startButton(const std::shared_ptr<OnboardingModel>& model) {
  return buttonView("start", ViewRole::primaryButton,
                    {textView("text", ViewRole::label, "Start listening"),
                     symbolView("symbol", ViewRole::symbol, "arrow.right")},
                    [weak = std::weak_ptr(model)] {
                      if (const std::shared_ptr<OnboardingModel> self = weak.lock()) self->finish();
                    });
}

}  // namespace

View doneStepView(const std::shared_ptr<OnboardingModel>& model) {
  std::vector<View> body;
  if (const std::optional<TargetApp>& player = model->routedPlayer.get()) {
    body.push_back(route(*player));
    body.push_back(textView("play-pause", ViewRole::body, "Play/pause now plays and pauses."));
  } else {
    body.push_back(noPlayer());
  }
  if (const std::optional<std::string>& name = model->automationPrimerPlayerName.get()) {
    body.push_back(verticalView(
        "primer", ViewRole::offer,
        {textView("text", ViewRole::body,
                  platform().wording().of("macOS will ask once to let Talmo talk to ") + *name)}));
  }
  body.push_back(hint());
  return stepScaffold(
      "done",
      {horizontalView("headline", ViewRole::headline,
                      {symbolView("symbol", ViewRole::successSymbol, "checkmark.circle.fill"),
                       textView("done", ViewRole::headline, "Done.")})},
      std::move(body), tray({startButton(model)}));
}

}  // namespace talmo
