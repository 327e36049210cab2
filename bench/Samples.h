#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <vector>

namespace talmo::test {

/// How long something took, each time that it was measured.
class Samples {
 public:
  void add(std::chrono::duration<double> time) { seconds_.push_back(time.count()); }

  /// In seconds; at least one has been measured.
  double last() const { return seconds_.back(); }
  double median() const { return quantile(0.5); }

  /// The shortest time that this share of all did not exceed, in seconds; `share` is above 0 and at
  /// most 1, and at least one has been measured.
  double quantile(double share) const {
    std::vector<double> sorted = seconds_;
    std::ranges::sort(sorted);
    const auto rank = std::ceil(share * static_cast<double>(sorted.size()));
    return sorted[static_cast<std::size_t>(rank) - 1];
  }

 private:
  std::vector<double> seconds_;
};

}  // namespace talmo::test
