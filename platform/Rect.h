#pragma once

namespace talmo {

/// A rectangle in screen coordinates: points, the origin in the lower left corner of the main
/// screen, y upwards.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double midX() const { return x + width / 2; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }

  bool operator==(const Rect&) const = default;
};

}  // namespace talmo
