#pragma once

#include <cstdint>
#include <string>

class QImage;

namespace talmo::test {

/// A picture without two equal neighbours, in one of two variants for any name.
QImage picture(int width, int height, const std::string& name);

/// The bytes of a file, as Qt writes it; `format` is Qt's name for it.
std::string imageFile(const QImage& picture, const char* format);

/// The bytes of a PNG that has a header and an end and nothing between.
std::string emptyPng(std::uint32_t width, std::uint32_t height);

/// The picture of a JPEG file, which its EXIF says to turn (TIFF's tag Orientation, 1 to 8).
std::string withOrientation(const std::string& jpeg, std::uint8_t orientation);

/// The bytes of a GIF of one or two pictures of 2 by 1, the first red and green, the second blue.
std::string smallGif(bool isAnimated);

}  // namespace talmo::test
