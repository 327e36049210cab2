#include "nowplaying/TidalHistory.h"

#include <utility>

namespace talmo {
namespace {

/// So many polls in a row without a track are no chance any more.
constexpr int missesThatDrop = 2;

}  // namespace

std::optional<NowPlayingState> TidalHistory::found(std::uint64_t poll, NowPlayingTrack track) {
  if (isLate(poll)) return std::nullopt;
  tidalMissCount_ = 0;
  lastTidalTrack_ = std::move(track);
  return lastTidalTrack_;
}

std::optional<NowPlayingState> TidalHistory::missed(std::uint64_t poll,
                                                    const std::string& displayName) {
  if (isLate(poll)) return std::nullopt;
  ++tidalMissCount_;
  if (lastTidalTrack_ && tidalMissCount_ < missesThatDrop) return lastTidalTrack_;
  lastTidalTrack_.reset();
  return RunningNoInfo{displayName};
}

bool TidalHistory::isLate(std::uint64_t poll) {
  if (poll < lastPoll_) return true;
  lastPoll_ = poll;
  return false;
}

}  // namespace talmo
