#pragma once

#include <memory>

#include "onboarding/OnboardingModel.h"
#include "platform/View.h"

namespace talmo {

/// The whole content of the first run's window, at the model's current step. Main thread.
View onboardingView(const std::shared_ptr<OnboardingModel>& model);

}  // namespace talmo
