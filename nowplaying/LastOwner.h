#pragma once

#include <optional>

#include "nowplaying/AdapterNowPlayingSnapshot.h"
#include "nowplaying/AdapterOwner.h"
#include "support/Time.h"

namespace talmo {

/// The owner of the most recent snapshot that anybody got from the adapter. Any thread.
class LastOwner {
 public:
  LastOwner() = delete;

  /// Records the owner as of now.
  static void record(const AdapterNowPlayingSnapshot& snapshot);

  /// The owner, when it was recorded at most `maxAge` ago.
  static std::optional<AdapterOwner> recent(Duration maxAge);
};

}  // namespace talmo
