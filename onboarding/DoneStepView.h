#pragma once

#include <memory>

#include "onboarding/OnboardingModel.h"
#include "platform/View.h"

namespace talmo {

/// Says where the keys go now. Main thread.
View doneStepView(const std::shared_ptr<OnboardingModel>& model);

}  // namespace talmo
