#pragma once

#include <QColor>
#include <QIcon>

#include "platform/linux/interface/view/Vectors.h"
#include "platform/StatusImage.h"

namespace talmo {

/// Draws a status item's picture at the sizes that trays use. Of a symbol, and of a template, only
/// the shape counts. What there is no vector for is empty.
QIcon statusIcon(const Vectors& vectors, const StatusImage& image, const QColor& foreground,
                 double alpha);

}  // namespace talmo
