#pragma once

#include "panel/PermissionWarningKind.h"
#include "platform/View.h"

namespace talmo {

/// Says what keeps the media keys away, and mends it. `kind` is not `none`.
View permissionWarningRow(PermissionWarningKind kind);

}  // namespace talmo
