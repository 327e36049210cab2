#pragma once

#include <memory>
#include <optional>

#include "adapter/MediaSession.h"

namespace talmo {

/// Where the helper learns about the media session; one implementation for each system. Used on
/// one thread. What cannot be had is absent; nothing here reports an error.
class SessionSource {
 public:
  virtual ~SessionSource() = default;

  /// The session as it is now; nothing when nobody owns one. Without `wantsArtwork` none is read.
  virtual std::optional<MediaSession> current(bool wantsArtwork) = 0;

  /// Waits until the session may have changed since the last call of `current`. A burst of changes
  /// is one. False when the helper has to end: its standard output has no reader any more, or the
  /// process that started it has gone.
  virtual bool waitForChange() = 0;

  /// Has the owner carry out a command (`MRMediaRemoteCommand`: 0 play, 1 pause, 2 toggle, 3 stop,
  /// 4 next track, 5 previous track). Whether it was delivered.
  virtual bool send(int command) = 0;
};

/// The source of the system that this is built for.
std::unique_ptr<SessionSource> makeSessionSource();

}  // namespace talmo
