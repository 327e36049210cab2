#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace talmo {

/// A decoded picture. A value: copies share the pixels, which never change.
struct Image {
  /// In pixels, both at least 1.
  int width = 0;
  int height = 0;
  /// Red, green, blue and alpha, a byte each, alpha not multiplied in; rows from the top, without
  /// padding. Never null.
  std::shared_ptr<const std::vector<std::uint8_t>> pixels;

  /// Whether it is the same picture.
  bool operator==(const Image& other) const {
    return width == other.width && height == other.height &&
           (pixels == other.pixels || *pixels == *other.pixels);
  }
};

}  // namespace talmo
