#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace talmo::test {

/// What a fake player says of its track. What is empty or absent it does not say.
struct FakeTrack {
  std::string title;
  std::vector<std::string> artists;
  std::string album;
  std::string url;
  std::string artUrl;
  /// An object path.
  std::string trackid;
  /// In microseconds.
  std::optional<std::int64_t> length;
  /// Whether all of it is of types that MPRIS does not allow.
  bool hasWrongTypes = false;
};

}  // namespace talmo::test
