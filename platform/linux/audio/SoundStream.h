#pragma once

#include <optional>
#include <string>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// A playback stream of the sound server, as its client describes it.
struct SoundStream {
  /// As the client counts processes, which in a sandbox is not how the system does.
  std::optional<ProcessIdentifier> process;
  /// The file name of the client's program; empty when it does not say.
  std::string executable;
  /// Whether it plays: it has a client and is not corked. A muted stream plays.
  bool isPlaying = false;
};

}  // namespace talmo
