#pragma once

#include <string>
#include <string_view>

namespace talmo {

/// The titles of tracks, as different services write them. Any thread.
class TrackTitle {
 public:
  TrackTitle() = delete;

  /// The title without its guests: cut where "(feat.", "(ft.", "[feat." or "[ft." stands in any
  /// letter case, and trimmed.
  static std::string strippingFeatureSuffix(std::string_view title);
};

}  // namespace talmo
