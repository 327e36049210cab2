#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace talmo {

/// Whether a picture of that size is drawn at all: neither side is empty or longer than 16384
/// pixels, and it has at most 12 million of them, which are 48 MB. No artwork is larger.
bool isPictureSize(std::size_t width, std::size_t height);

/// Divides the alpha out of pixels of red, green, blue and alpha, a byte each, into which it was
/// multiplied; what shows nothing becomes zero. The size is a multiple of four.
void divideAlphaOut(std::vector<std::uint8_t>& pixels);

}  // namespace talmo
