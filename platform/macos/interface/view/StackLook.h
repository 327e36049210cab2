#pragma once

#include "platform/macos/interface/view/Insets.h"
#include "platform/macos/interface/view/PartKey.h"
#include "platform/ViewRole.h"

namespace talmo {

// The room in and between the parts of a stack or button. `container` is the role of the nearest
// stack or button around it that is more than a group.

Insets insetsOf(ViewRole role, ViewRole container);

/// Between the parts of a line.
double spacingOf(ViewRole role);

/// Between two parts below each other.
double gapBetween(const PartKey& above, const PartKey& below, ViewRole role, ViewRole container);

/// The least height of a button; 0 for what is as high as its content.
double leastHeightOf(ViewRole role);

}  // namespace talmo
