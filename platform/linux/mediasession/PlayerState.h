#pragma once

#include <optional>
#include <string>

#include "platform/linux/mediasession/PlaybackStatus.h"

namespace talmo {

/// What a player says of itself and its track.
struct PlayerState {
  PlaybackStatus status = PlaybackStatus::stopped;
  std::string trackIdentifier;
  std::string title;
  std::optional<std::string> artist;
  std::optional<std::string> album;
  /// In seconds.
  std::optional<double> duration;
  std::optional<double> elapsedTime;
  double rate = 1;
  /// Empty when there is none.
  std::string artworkUrl;
};

}  // namespace talmo
