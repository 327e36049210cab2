#include "platform/macos/interface/view/Pictures.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace talmo {
namespace {

using Pixels = std::shared_ptr<const std::vector<std::uint8_t>>;

void release(void* info, const void*, std::size_t) {
  delete static_cast<Pixels*>(info);
}

}  // namespace

CGImageRef createSystemImage(const Image& image) {
  constexpr std::size_t bitsPerComponent = 8;
  constexpr std::size_t bytesPerPixel = 4;
  const auto width = static_cast<std::size_t>(image.width);
  const auto height = static_cast<std::size_t>(image.height);
  // The provider has it from here on; it releases it with the last image made from it.
  auto* const pixels = new Pixels(image.pixels);
  CGDataProviderRef const provider =
      CGDataProviderCreateWithData(pixels, (*pixels)->data(), (*pixels)->size(), release);
  if (provider == nullptr) {
    delete pixels;
    return nullptr;
  }
  CGColorSpaceRef const colours = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
  CGImageRef const made =
      CGImageCreate(width, height, bitsPerComponent, bitsPerComponent * bytesPerPixel,
                    bytesPerPixel * width, colours, static_cast<CGBitmapInfo>(kCGImageAlphaLast),
                    provider, nullptr, true, kCGRenderingIntentDefault);
  CGColorSpaceRelease(colours);
  CGDataProviderRelease(provider);
  return made;
}

}  // namespace talmo
