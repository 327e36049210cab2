#pragma once

#include <QColor>
#include <QRectF>

#include "platform/linux/interface/view/Palette.h"
#include "platform/ViewRole.h"

class QPainter;

namespace talmo {

/// Paints the ground of a whole window.
void paintGlass(QPainter& painter, const QRectF& place, const Palette& palette);

/// Paints what a stack of the role stands on in its window; nothing for most.
void paintGround(QPainter& painter, const QRectF& place, ViewRole role, const Palette& palette);

/// Paints the light that a picture of that tint throws on a card's ground.
void paintTint(QPainter& painter, const QRectF& place, QColor tint);

}  // namespace talmo
