#pragma once

namespace talmo {

/// What a stack leaves free inside its edges, in points.
struct Insets {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  bool operator==(const Insets&) const = default;
};

}  // namespace talmo
