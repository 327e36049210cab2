#pragma once

#include <string>

namespace talmo {

/// Bytes among the values of a now-playing dictionary, as opposed to text.
struct MediaRemoteData {
  std::string bytes;

  bool operator==(const MediaRemoteData&) const = default;
};

}  // namespace talmo
