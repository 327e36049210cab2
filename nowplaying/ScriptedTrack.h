#pragma once

#include <optional>
#include <string>

#include "platform/Image.h"

namespace talmo {

/// The current track of a scriptable player, as the player tells it.
struct ScriptedTrack {
  /// Never empty.
  std::string title;
  /// Empty when there is none.
  std::string artist;
  bool isPlaying = false;
  /// Where the artwork is; a player has either this or the artwork itself.
  std::optional<std::string> artworkUrl;
  std::optional<Image> artwork;

  /// Asks the player; nothing when it cannot be asked, or has no current track. Waits for two
  /// seconds at most for each of a handful of properties. Any thread but the main one.
  static std::optional<ScriptedTrack> read(const std::string& bundleID);
};

}  // namespace talmo
