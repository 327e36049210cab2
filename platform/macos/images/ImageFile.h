#pragma once

#include <string_view>

namespace talmo {

/// Whether the bytes are a PNG, JPEG, GIF or WebP file whose first picture is whole, as far as the
/// file's parts say how long they are. What follows the picture does not matter; what the parts
/// hold is not looked at.
bool isWholeImageFile(std::string_view bytes);

}  // namespace talmo
