#pragma once

namespace talmo::test {

/// A part of the screen, in pixels from its upper left corner.
struct PixelArea {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int middleX() const { return x + width / 2; }
  int middleY() const { return y + height / 2; }
  int right() const { return x + width; }
  int bottom() const { return y + height; }

  bool operator==(const PixelArea&) const = default;
};

}  // namespace talmo::test
