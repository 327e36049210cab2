#pragma once

#include <cstdint>

namespace talmo {

/// A transport command that a web player accepts.
enum class WebCommand { toggle, next, previous };

/// The media session's number for the command (MediaRemote's toggle-play-pause, next-track and
/// previous-track).
constexpr std::int32_t mediaRemoteID(WebCommand command) {
  switch (command) {
    case WebCommand::toggle:
      return 2;
    case WebCommand::next:
      return 4;
    case WebCommand::previous:
      return 5;
  }
  return 0;
}

}  // namespace talmo
