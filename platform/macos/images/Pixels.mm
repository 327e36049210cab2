#include "platform/macos/images/Pixels.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/macos/CFOwned.h"
#include "platform/macos/images/PremultipliedPixels.h"

namespace talmo {
namespace {

// A byte each for red, green, blue and alpha, in this order; a context cannot have them other than
// with the alpha multiplied in ("Quartz 2D Programming Guide", Supported Pixel Formats).
constexpr std::size_t bitsPerComponent = 8;
constexpr std::size_t bytesPerPixel = 4;
constexpr std::uint32_t layout =
    std::uint32_t{kCGImageAlphaPremultipliedLast} | std::uint32_t{kCGBitmapByteOrder32Big};

/// The picture, drawn over nothing in that size.
std::optional<Image> drawn(CGImageRef picture, std::size_t width, std::size_t height) {
  if (!isPictureSize(width, height)) return std::nullopt;
  const CFOwned<CGColorSpaceRef> space(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(width * height * bytesPerPixel);
  // Rows from the top, as they lie in a context's memory.
  const CFOwned<CGContextRef> context(CGBitmapContextCreate(
      pixels->data(), width, height, bitsPerComponent, width * bytesPerPixel, space.get(), layout));
  if (!context) return std::nullopt;
  CGContextSetInterpolationQuality(context.get(), kCGInterpolationHigh);
  CGContextDrawImage(context.get(),
                     CGRectMake(0, 0, static_cast<CGFloat>(width), static_cast<CGFloat>(height)),
                     picture);
  divideAlphaOut(*pixels);
  return Image{.width = static_cast<int>(width),
               .height = static_cast<int>(height),
               .pixels = std::move(pixels)};
}

}  // namespace

std::optional<Image> pixelsOf(CGImageRef picture) {
  if (picture == nullptr) return std::nullopt;
  return drawn(picture, CGImageGetWidth(picture), CGImageGetHeight(picture));
}

std::optional<Image> pixelsOf(NSImage* picture) {
  return pixelsOf([picture CGImageForProposedRect:nullptr context:nil hints:nil]);
}

std::optional<Image> pixelsOf(NSImage* picture, int pixels) {
  NSRect frame = CGRectMake(0, 0, pixels, pixels);
  const CGImageRef best = [picture CGImageForProposedRect:&frame context:nil hints:nil];
  if (best == nullptr || pixels <= 0) return std::nullopt;
  return drawn(best, static_cast<std::size_t>(pixels), static_cast<std::size_t>(pixels));
}

}  // namespace talmo
