#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/PixelArea.h"

namespace talmo::test {

/// What a part of the screen looked like.
class ScreenPicture {
 public:
  /// Throws when the display cannot be reached or has no such place.
  static ScreenPicture take(const std::string& display, const PixelArea& area);

  const PixelArea& area() const { return area_; }

  /// The colour at a place of the screen, as 0xRRGGBB.
  std::uint32_t at(int x, int y) const;

  /// The smallest part of the screen outside which two pictures of the same area are equal; nothing
  /// when they are equal.
  std::optional<PixelArea> difference(const ScreenPicture& other) const;

 private:
  PixelArea area_;
  /// Row by row from the top.
  std::vector<std::uint32_t> pixels_;
};

}  // namespace talmo::test
