#pragma once

#include <QColor>
#include <QFont>

#include "platform/linux/interface/view/Palette.h"
#include "platform/ViewRole.h"

namespace talmo {

/// How a text of a role looks in what contains it: `container` is the role of the nearest stack or
/// button around it that is more than a group. The desktop's font counts as 13 points.
QFont textFont(ViewRole role, ViewRole container, const QFont& desktopFont);
QColor textColour(ViewRole role, ViewRole container, const Palette& palette);

}  // namespace talmo
