#pragma once

#include <optional>
#include <string_view>

#include "platform/Image.h"

namespace talmo {

/// Makes pictures of the bytes of image files. Called on any thread but the main one, several at a
/// time.
class ImageDecoder {
 public:
  virtual ~ImageDecoder() = default;

  /// The first picture in `bytes`, upright; nothing when they are no image of a kind that the
  /// system reads, are cut off, or hold more bytes or pixels than an artwork ever has. What such
  /// bytes claim of themselves is never believed before memory is taken for it.
  virtual std::optional<Image> decode(std::string_view bytes) = 0;
};

}  // namespace talmo
