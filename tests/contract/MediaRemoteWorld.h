#pragma once

#include <functional>
#include <string>

#include "platform/Dispatch.h"
#include "platform/MediaRemote.h"
#include "platform/Notifications.h"

namespace talmo::test {

/// A `MediaRemote` that lacks nothing, and players that the suite has play. At first there are
/// none. The thread that makes it is the main thread; all functions belong to it.
struct MediaRemoteWorld {
  virtual ~MediaRemoteWorld() = default;

  virtual Dispatch& dispatch() = 0;
  virtual MediaRemote& mediaRemote() = 0;
  virtual Notifications& notifications() = 0;

  /// Serves the main queue until `condition`, which reads atomics only, holds or `limit` is over;
  /// returns whether it held.
  virtual bool runUntil(const std::function<bool()>& condition, Duration limit) = 0;

  /// Has a player play a track by "Artist" with the artwork "picture"; it is started if need be.
  virtual void play(const std::string& player, const std::string& title) = 0;
  virtual void pause(const std::string& player) = 0;
  virtual void quit(const std::string& player) = 0;
};

}  // namespace talmo::test
