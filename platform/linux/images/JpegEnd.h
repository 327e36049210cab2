#pragma once

#include <string_view>

namespace talmo {

/// Whether a JPEG file goes on to its end marker, so that nothing of it was cut off. What follows
/// the end does not matter.
bool hasJpegEnd(std::string_view bytes);

}  // namespace talmo
