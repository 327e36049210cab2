#pragma once

#include <QImage>

#include "platform/Image.h"

namespace talmo::test {

/// The picture as a value of the program's.
Image imageOf(const QImage& picture);

}  // namespace talmo::test
