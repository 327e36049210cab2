#pragma once

#include <QColor>
#include <QRegion>
#include <QSize>

namespace talmo {

class Appearance;

// What a window with round corners needs where nobody blends it with what is behind it.

/// Whether somebody blends translucent windows.
bool hasCompositor();

/// What of a window of that size is within its corners.
QRegion roundedShape(const QSize& size);

/// The colour of a content's ground, without its translucency.
QColor opaqueGround(const Appearance& appearance);

}  // namespace talmo
