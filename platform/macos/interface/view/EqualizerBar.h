#pragma once

#include <array>
#include <cstddef>

namespace talmo {

/// One of the bars of an equalizer. Times in seconds, lengths in points.
struct EqualizerBar {
  static constexpr double width = 3;
  static constexpr double gap = 1;
  static constexpr double low = 3;
  static constexpr double high = 14;

  /// How long it takes up and down again.
  double duration = 1;
  /// Where in that it begins, from 0 to 1.
  double phase = 0;

  /// How high it is where the bars say by standing still that something sounds.
  double stillHeight() const;

  /// Where the left edge of the bar of that index is.
  static constexpr double leftEdge(std::size_t index) {
    return static_cast<double>(index) * (width + gap);
  }
};

// No two durations are a simple multiple of each other, so that the bars never fall into step.
inline constexpr std::array equalizerBars{
    EqualizerBar{.duration = 0.82, .phase = 0.0}, EqualizerBar{.duration = 0.61, .phase = 0.35},
    EqualizerBar{.duration = 0.97, .phase = 0.7}, EqualizerBar{.duration = 0.71, .phase = 0.15}};

}  // namespace talmo
