#pragma once

#include "players/MediaKey.h"

namespace talmo {

/// What a media-key event says.
struct DecodedMediaKey {
  MediaKey key = MediaKey::playPause;
  bool isKeyDown = false;
  bool isRepeat = false;

  bool operator==(const DecodedMediaKey&) const = default;
};

}  // namespace talmo
