#pragma once

#include "nowplaying/AdapterNowPlayingSnapshot.h"
#include "nowplaying/SystemNowPlayingInfo.h"
#include "players/TargetApp.h"

namespace talmo {

/// Whether what the system plays is the target's: a native target's when the owner is the target or
/// a helper process of it, a web target's when the owner is the browser that holds its known tab,
/// unless another tab's title tells that that one plays. Any thread; no browser is asked.
class SessionMatch {
 public:
  SessionMatch() = delete;

  static bool matches(const AdapterNowPlayingSnapshot& snapshot, const TargetApp& target);
  static bool matches(const SystemNowPlayingInfo& info, const TargetApp& target);
};

}  // namespace talmo
