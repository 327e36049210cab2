#pragma once

#include <optional>
#include <string>

namespace talmo {

/// The public music catalogue whose search service knows artworks: what it is asked, and what its
/// answers mean. Any thread.
class Catalogue {
 public:
  Catalogue() = delete;

  /// The URL of the search for a track.
  static std::string searchURL(const std::string& track, const std::string& artist);

  /// The URL of the track's artwork by the answer to its search; nothing when the answer is none,
  /// or has no entry with an artwork that can be the track.
  static std::optional<std::string> artworkURL(const std::string& answer, const std::string& track,
                                               const std::string& artist);
};

}  // namespace talmo
