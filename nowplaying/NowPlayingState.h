#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/Image.h"

namespace talmo {

/// The target plays or has paused this.
struct NowPlayingTrack {
  std::string title;
  /// Empty when there is none.
  std::string artist;
  std::optional<Image> artwork;
  bool isPlaying = false;

  /// Artworks are not compared: one that comes later does not make another track.
  bool operator==(const NowPlayingTrack& other) const {
    return title == other.title && artist == other.artist && isPlaying == other.isPlaying;
  }
};

/// The target of that name runs, and nobody tells what it plays.
struct RunningNoInfo {
  std::string displayName;

  bool operator==(const RunningNoInfo&) const = default;
};

/// There is no target, or it does not run.
struct NowPlayingIdle {
  bool operator==(const NowPlayingIdle&) const = default;
};

/// What there is to show of the target player.
using NowPlayingState = std::variant<NowPlayingIdle, NowPlayingTrack, RunningNoInfo>;

}  // namespace talmo
