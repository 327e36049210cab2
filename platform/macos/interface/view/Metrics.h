#pragma once

namespace talmo {

/// The measures of the look, in points.
struct Metrics {
  /// Of the panel.
  static constexpr double width = 320;
  static constexpr double glassRadius = 14;
  static constexpr double cardRadius = 10;
  static constexpr double rowRadius = 8;
  static constexpr double artworkRadius = 8;
  static constexpr double artwork = 64;
  static constexpr double icon = 28;
  static constexpr double symbol = 16;
  static constexpr double rowHeight = 40;
  static constexpr double buttonHeight = 28;
  static constexpr double largeButtonHeight = 38;
  static constexpr double tight = 2;
  static constexpr double small = 4;
  static constexpr double step = 8;
  static constexpr double wide = 12;
  /// Between the parts of a window, and around them.
  static constexpr double roomy = 24;
  static constexpr double margin = 36;

  /// Of a list that scrolls; half a row says that there is more.
  static constexpr double longestList = 7 * (rowHeight + tight) + rowHeight / 2;
};

}  // namespace talmo
