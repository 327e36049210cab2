#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// What the owner of the media session plays. All texts are valid UTF-8 and of bounded length.
struct MprisSession {
  /// The owner, by the table of applications as far as that goes. Never empty.
  std::string bundleIdentifier;
  /// 0 when the bus could not tell.
  ProcessIdentifier process = 0;
  /// The owner's own name for the track, to tell one track from the next; may be empty.
  std::string trackIdentifier;
  /// Empty when the owner gives none and none can be made from the file's name.
  std::string title;
  std::optional<std::string> artist;
  std::optional<std::string> album;
  bool isPlaying = false;
  /// 1 is the usual speed. Of a player that is paused, the speed that it would play with.
  double rate = 1;
  /// In seconds, as of the time of asking.
  std::optional<double> elapsedTime;
  std::optional<double> duration;
  /// The bytes of an image file. The same object as before when it has not changed.
  std::shared_ptr<const std::string> artwork;
};

}  // namespace talmo
