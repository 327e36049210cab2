#pragma once

#include "platform/Rect.h"
#include "platform/Size.h"
#include "platform/StatusButton.h"

namespace talmo {

/// Where a panel of that size belongs: centred below the status item and within its screen, which
/// cuts what is higher than itself. Where no status item is shown, in the right upper corner.
Rect panelFrame(const StatusButton& button, Size size);

}  // namespace talmo
