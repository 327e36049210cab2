#pragma once

#include <memory>

#include "onboarding/OnboardingModel.h"
#include "platform/View.h"

namespace talmo {

/// Has the person switch the permission on, and helps where that does not work. Main thread.
View permissionStepView(const std::shared_ptr<OnboardingModel>& model);

}  // namespace talmo
