#pragma once

#include "panel/AutomationWarning.h"
#include "platform/View.h"

namespace talmo {

/// Says what Automation would allow, and where to turn it on.
View automationWarningRow(const AutomationWarning& warning);

}  // namespace talmo
