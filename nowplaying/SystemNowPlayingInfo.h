#pragma once

#include <optional>
#include <string>

#include "platform/Image.h"

namespace talmo {

/// What the system's own record says is playing.
struct SystemNowPlayingInfo {
  /// The owner; nothing when it is no application.
  std::optional<std::string> bundleID;
  /// Never empty.
  std::string title;
  /// Empty when there is none.
  std::string artist;
  std::optional<Image> artwork;
  bool isPlaying = false;
};

}  // namespace talmo
