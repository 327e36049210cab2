#pragma once

namespace talmo {

/// The measures of the look, in points.
struct Metrics {
  static constexpr int width = 320;
  static constexpr int glassRadius = 14;
  static constexpr int cardRadius = 10;
  static constexpr int rowRadius = 8;
  static constexpr int rowHeight = 40;
  static constexpr int buttonHeight = 28;
  static constexpr int largeButtonHeight = 38;
  static constexpr int artwork = 64;
  static constexpr int artworkRadius = 8;
  static constexpr int icon = 28;
  static constexpr int symbol = 16;
  static constexpr int tight = 2;
  static constexpr int small = 4;
  static constexpr int step = 8;
  static constexpr int wide = 12;
  /// Between the parts of a window, and around them.
  static constexpr int roomy = 24;
  static constexpr int margin = 36;

  /// Of a list that scrolls; half a row says that there is more.
  static constexpr int longestList = 7 * (rowHeight + tight) + rowHeight / 2;
};

}  // namespace talmo
