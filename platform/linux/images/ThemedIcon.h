#pragma once

#include <optional>
#include <string>

#include "platform/Image.h"

namespace talmo {

/// The icon that `name` stands for in a desktop entry, at most so many pixels wide and high: the
/// path of a picture, or a name in the desktop's icon theme, the theme that all fall back to, or
/// the folder that icons were in before there were themes. Nothing where there is none, or no
/// toolkit. Main thread.
std::optional<Image> themedIcon(const std::string& name, int pixels);

}  // namespace talmo
