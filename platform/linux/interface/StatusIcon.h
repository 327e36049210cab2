#pragma once

#include <QColor>
#include <QIcon>

#include "platform/Bundle.h"
#include "platform/StatusImage.h"

namespace talmo {

/// Draws a status item's picture at the sizes that trays use. Its vectors are
/// `images/<name>.svg` and `symbols/<name>.svg` of the program's resources; of a symbol, and of a
/// template, only the shape counts. What there is no vector for is empty.
QIcon statusIcon(const Bundle& bundle, const StatusImage& image, const QColor& foreground,
                 double alpha);

}  // namespace talmo
