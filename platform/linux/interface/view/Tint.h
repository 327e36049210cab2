#pragma once

#include <QColor>

#include "platform/Image.h"

namespace talmo {

/// The colour that a picture is remembered by, of middle lightness; invalid when all of it is
/// transparent. What is tinted with it keeps its contrast, as the lightness is always the same.
QColor tintOf(const Image& image);

}  // namespace talmo
