#pragma once

#include <optional>

#include "platform/Image.h"

class QImage;

namespace talmo {

/// A picture of the toolkit as a value of the program; nothing when it is empty, or when there is
/// no memory for it.
std::optional<Image> fromToolkit(QImage picture);

}  // namespace talmo
