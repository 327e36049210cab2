#pragma once

#include <cstddef>

#include "platform/ImageDecoder.h"

namespace talmo {

/// Reads PNG, JPEG, GIF and, where its plugin is installed, WebP through Qt's image reader, by
/// what the bytes say and never by a name. Any thread; needs no application object.
class LinuxImageDecoder : public ImageDecoder {
 public:
  /// The largest file that is looked at. Artworks have a megabyte or two.
  static constexpr std::size_t largestFile = std::size_t{32} << 20;
  /// In pixels. Artworks have up to 3000 by 3000; twelve million pixels are 48 MB.
  static constexpr int largestSide = 16384;
  static constexpr std::size_t mostPixels = 12'000'000;

  /// Bounds and silences the readers of this kind in the whole process.
  LinuxImageDecoder();

  std::optional<Image> decode(std::string_view bytes) override;
};

}  // namespace talmo
