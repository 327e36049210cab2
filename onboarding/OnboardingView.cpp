#include "onboarding/OnboardingView.h"

#include "onboarding/DoneStepView.h"
#include "onboarding/PermissionStepView.h"
#include "onboarding/ProgressSegments.h"
#include "panel/ViewParts.h"

namespace talmo {

View onboardingView(const std::shared_ptr<OnboardingModel>& model) {
  const Step step = model->step.get();
  return verticalView("onboarding", ViewRole::material,
                      {progressSegments(step),
                       step == Step::permission ? permissionStepView(model) : doneStepView(model)});
}

}  // namespace talmo
