#pragma once

#include <optional>
#include <string>

#include "platform/linux/mediasession/PlayerState.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// A player on the bus, as it was known last.
struct MprisPlayer {
  /// The name that it asked the bus for.
  std::string busName;
  std::string bundleIdentifier;
  /// 0 when the bus could not tell.
  ProcessIdentifier process = 0;
  /// Nothing for a player that has never answered.
  std::optional<PlayerState> state;
  bool hasAnswered = false;
};

}  // namespace talmo
