#pragma once

#include <cstddef>

#include "platform/ImageDecoder.h"

namespace talmo {

/// Reads PNG, JPEG, GIF and WebP through ImageIO, by what the bytes say and never by a name.
class MacImageDecoder : public ImageDecoder {
 public:
  /// The largest file that is looked at, in bytes. Artworks have a megabyte or two.
  static constexpr std::size_t largestFile = std::size_t{32} << 20;

  std::optional<Image> decode(std::string_view bytes) override;
};

}  // namespace talmo
