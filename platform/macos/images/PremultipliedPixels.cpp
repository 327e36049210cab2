#include "platform/macos/images/PremultipliedPixels.h"

#include <algorithm>

namespace talmo {
namespace {

constexpr std::size_t longestSide = 16384;
constexpr std::size_t mostPixels = 12'000'000;
constexpr unsigned opaque = 255;

}  // namespace

bool isPictureSize(std::size_t width, std::size_t height) {
  if (width == 0 || height == 0 || width > longestSide || height > longestSide) return false;
  return width * height <= mostPixels;
}

void divideAlphaOut(std::vector<std::uint8_t>& pixels) {
  for (std::size_t pixel = 0; pixel + 3 < pixels.size(); pixel += 4) {
    const unsigned alpha = pixels[pixel + 3];
    if (alpha == opaque) continue;
    for (std::size_t channel = pixel; channel < pixel + 3; ++channel) {
      // To the nearest; a colour that is brighter than its alpha allows is not representable.
      const unsigned value = alpha == 0 ? 0 : (pixels[channel] * opaque + alpha / 2) / alpha;
      pixels[channel] = static_cast<std::uint8_t>(std::min(value, opaque));
    }
  }
}

}  // namespace talmo
