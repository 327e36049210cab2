#pragma once

#include "onboarding/Step.h"
#include "platform/View.h"

namespace talmo {

/// A segment for each step, the one of the current step filled.
View progressSegments(Step current);

}  // namespace talmo
