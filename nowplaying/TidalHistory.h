#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "nowplaying/NowPlayingState.h"

namespace talmo {

/// What the polls of TIDAL's window have found so far. Its title is without a track for a moment
/// now and then, which one poll must not show. A value; used on one queue.
///
/// Polls are numbered upwards. A poll that ends after a later one has no say: it gets no state.
class TidalHistory {
 public:
  /// A poll found the track; returns what there is to show.
  std::optional<NowPlayingState> found(std::uint64_t poll, NowPlayingTrack track);

  /// A poll of the player of that name found no track.
  std::optional<NowPlayingState> missed(std::uint64_t poll, const std::string& displayName);

 private:
  bool isLate(std::uint64_t poll);

  std::optional<NowPlayingTrack> lastTidalTrack_;
  /// How many polls in a row found no track.
  int tidalMissCount_ = 0;
  std::uint64_t lastPoll_ = 0;
};

}  // namespace talmo
