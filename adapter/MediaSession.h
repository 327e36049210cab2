#pragma once

#include <memory>
#include <optional>
#include <string>

namespace talmo {

/// What the owner of the system's media session plays.
struct MediaSession {
  /// The owner. Never empty.
  std::string bundleIdentifier;
  /// The application that the owner is a helper process of.
  std::optional<std::string> parentApplicationBundleIdentifier;
  /// The owner's own name for the track, to tell one track from the next; may be empty.
  std::string trackIdentifier;
  std::string title;
  std::optional<std::string> artist;
  std::optional<std::string> album;
  bool isPlaying = false;
  /// In seconds.
  std::optional<double> elapsedTime;
  std::optional<double> duration;
  /// The bytes of an image file. The same object as before when it has not changed.
  std::shared_ptr<const std::string> artwork;
};

}  // namespace talmo
