#pragma once

#include <optional>
#include <string>

#include "platform/Image.h"

namespace talmo {

/// What the system is playing, and who owns its media session, as the adapter saw it.
struct AdapterNowPlayingSnapshot {
  /// The owner of the session.
  std::string bundleID;
  /// The application that the owner is a helper process of.
  std::optional<std::string> parentBundleID;
  /// Never empty.
  std::string title;
  /// Empty when there is none.
  std::string artist;
  std::optional<std::string> album;
  bool isPlaying = false;
  /// In seconds.
  std::optional<double> elapsedTime;
  std::optional<double> duration;
  std::optional<Image> artwork;

  /// Pictures are not compared, only whether there is one: a new picture alone is no news.
  bool operator==(const AdapterNowPlayingSnapshot& other) const;
};

}  // namespace talmo
