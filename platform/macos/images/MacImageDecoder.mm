#include "platform/macos/images/MacImageDecoder.h"

#include <algorithm>

#import <Foundation/Foundation.h>
#include <ImageIO/ImageIO.h>

#include "platform/macos/CFOwned.h"
#include "platform/macos/images/ImageFile.h"
#include "platform/macos/images/Pixels.h"
#include "platform/macos/images/PremultipliedPixels.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

/// A number among a picture's properties; zero when there is none, or a negative one.
std::size_t lengthOf(NSDictionary* properties, CFStringRef key) {
  const id value = properties[(__bridge NSString*)key];
  if (![value isKindOfClass:[NSNumber class]]) return 0;
  return static_cast<std::size_t>(
      std::max(static_cast<NSNumber*>(value).integerValue, NSInteger{}));
}

}  // namespace

std::optional<Image> MacImageDecoder::decode(std::string_view bytes) {
  if (bytes.size() > largestFile || !isWholeImageFile(bytes)) return std::nullopt;
  @autoreleasepool {
    const CFOwned<CGImageSourceRef> source(
        CGImageSourceCreateWithData((__bridge CFDataRef)toNSData(bytes), nullptr));
    if (!source) return std::nullopt;
    // From the header, before there is memory for any pixel.
    NSDictionary* const properties =
        CFBridgingRelease(CGImageSourceCopyPropertiesAtIndex(source.get(), 0, nullptr));
    const std::size_t width = lengthOf(properties, kCGImagePropertyPixelWidth);
    const std::size_t height = lengthOf(properties, kCGImagePropertyPixelHeight);
    if (!isPictureSize(width, height)) return std::nullopt;
    // Of the full size: what it has before a plain picture is that it is upright.
    NSDictionary* const options = @{
      (__bridge NSString*)kCGImageSourceCreateThumbnailFromImageAlways : @YES,
      (__bridge NSString*)kCGImageSourceCreateThumbnailWithTransform : @YES,
      (__bridge NSString*)kCGImageSourceThumbnailMaxPixelSize : @(std::max(width, height)),
    };
    const CFOwned<CGImageRef> picture(
        CGImageSourceCreateThumbnailAtIndex(source.get(), 0, (__bridge CFDictionaryRef)options));
    return pixelsOf(picture.get());
  }
}

}  // namespace talmo
