#pragma once

#include "players/MediaKey.h"

namespace talmo {

class MediaKeyTap;

/// Decides over the media keys that a `MediaKeyTap` captures.
class MediaKeyTapDelegate {
 public:
  virtual ~MediaKeyTapDelegate() = default;

  /// Whether the event is consumed (nobody else ever sees it) or passes. Called on the tap thread
  /// for every press, repeat and release; it answers at once and waits for nothing.
  virtual bool mediaKeyTap(MediaKeyTap& tap, MediaKey shouldConsume, bool isKeyDown,
                           bool isRepeat) = 0;
};

}  // namespace talmo
