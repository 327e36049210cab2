#pragma once

#include "platform/View.h"
#include "players/TargetApp.h"

namespace talmo {

/// A player's picture: its application's icon, a web player's own, or a note for want of either.
/// Main thread.
View rowIcon(const TargetApp& app, ViewRole role = ViewRole::icon);

}  // namespace talmo
