#pragma once

#include <QRect>

#include "platform/Rect.h"

namespace talmo {

// Between the toolkit's coordinates (device-independent pixels, y downwards from the upper left of
// all screens) and the program's. With no screen at all both are empty.

Rect fromToolkit(const QRect& area);
QRect toToolkit(const Rect& area);

}  // namespace talmo
