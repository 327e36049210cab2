#pragma once

#include <string>

#include "platform/ImageDecoder.h"

namespace talmo::test {

/// A decoder and someone who makes images for it.
class ImageDecoderWorld {
 public:
  virtual ~ImageDecoderWorld() = default;

  virtual ImageDecoder& decoder() = 0;

  /// An image of that size; equal for equal arguments, of other pixels for another name.
  virtual std::string encode(int width, int height, const std::string& name) = 0;

  /// A file of a few bytes that claims to be an image of that size.
  virtual std::string claim(int width, int height) = 0;
};

}  // namespace talmo::test
