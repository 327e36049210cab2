#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/mediasession/PlaybackStatus.h"

namespace talmo {

/// Which players have started to play, the latest first: whom the media session belongs to. A
/// value; whoever sees the same players gets the same order.
struct SessionOrder {
  struct Entry {
    /// The player's unique name on the bus, which is never given twice.
    std::string name;
    bool wasPlaying = false;

    bool operator==(const Entry&) const = default;
  };

  /// A player as it was seen.
  struct Seen {
    std::string name;
    /// Nothing when the player has never said.
    std::optional<PlaybackStatus> status;
  };

  std::vector<Entry> entries;

  /// The order after seeing these players, who are all there are: those that play now and did not
  /// before come first, in the order in which they are given; the others keep their places.
  SessionOrder observe(std::span<const Seen> players) const;

  /// The name of the owner, of players that `observe` has seen: the latest that has not stopped.
  /// Where none of those that ever played is left, the first of `players` that is paused.
  std::optional<std::string> owner(std::span<const Seen> players) const;

  bool operator==(const SessionOrder&) const = default;
};

}  // namespace talmo
