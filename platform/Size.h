#pragma once

namespace talmo {

/// In points; a point is a pixel at a scale of 100 %.
struct Size {
  double width = 0;
  double height = 0;

  bool operator==(const Size&) const = default;
};

}  // namespace talmo
