#pragma once

#include <poll.h>

#include "platform/linux/applications/BusConnection.h"
#include "support/Time.h"

namespace talmo {

/// What players tell everybody on the session bus, as no more than "something has changed": a
/// player came, went, sought, or has other properties. On a connection of its own, so that no flood
/// of such signals stands between a question and its answer. One thread.
class MprisSignals {
 public:
  /// Whether there is a connection.
  bool isOpen() const { return bus_ != nullptr; }

  /// Connects and subscribes; gives up at about `deadline`. Whether that worked.
  bool open(Uptime deadline);

  /// What to wait for with poll(2) until `drain` has something to do.
  pollfd descriptor() const;

  struct Drained {
    /// Whether anything has come, or the connection was lost.
    bool hasNews = false;
    /// Whether there may be more, which poll(2) does not know of.
    bool hasMore = false;
  };

  /// Takes what has come, a bounded amount of it.
  Drained drain();

 private:
  BusConnection bus_;
};

}  // namespace talmo
