#pragma once

#include <map>
#include <optional>
#include <poll.h>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/applications/SessionBus.h"
#include "platform/linux/mediasession/Artworks.h"
#include "platform/linux/mediasession/MprisPlayer.h"
#include "platform/linux/mediasession/MprisSession.h"
#include "platform/linux/mediasession/MprisSignals.h"
#include "platform/linux/mediasession/SessionOrder.h"
#include "platform/linux/mediasession/SessionRecord.h"
#include "support/Time.h"

namespace talmo {

/// The media session of this desktop, made up from the players on the session bus: it belongs to
/// the one that started to play last. Used on one thread, which keeps its connections to the bus.
///
/// A player that does not answer is taken for what it last was, and delays the others by no more
/// than half a second. What cannot be had is absent; nothing here reports an error.
class MprisSessions {
 public:
  enum class Wake {
    /// The session may have changed.
    change,
    /// Something happened to a descriptor that the caller gave.
    descriptor,
    /// The deadline has come.
    deadline,
  };

  MprisSessions() = default;
  MprisSessions(const MprisSessions&) = delete;
  MprisSessions& operator=(const MprisSessions&) = delete;

  /// The session as it is now; nothing when nobody owns one, or there is no bus. Without
  /// `wantsArtwork` none is read. Takes at most half a second, and the time to read the artwork.
  std::optional<MprisSession> current(bool wantsArtwork);

  /// Waits until the session may have changed since the last call of `current`; a burst of changes
  /// is one. The first wait ends at once, as it does whenever the bus comes or goes. It also ends
  /// when poll(2) has something to say of one of `descriptors`, whose `revents` are then set, and
  /// at `deadline`, if there is one.
  Wake waitForChange(std::span<pollfd> descriptors = {},
                     std::optional<Uptime> deadline = std::nullopt);

  /// Has the owner carry out a command (`MRMediaRemoteCommand`: 0 play, 1 pause, 2 toggle, 3 stop,
  /// 4 next track, 5 previous track). Whether it said that it did; takes at most a second.
  bool send(int command);

 private:
  /// Asks all players who they are and what they play, until `deadline`.
  void observe(Uptime deadline);
  /// Asks the players of these bus names and adds those that are there to `found`. False when the
  /// bus does not answer.
  bool ask(const std::vector<std::string>& busNames, Uptime deadline,
           std::map<std::string, MprisPlayer>& found);
  bool isSlow(const std::string& busName) const;
  /// Brings the order and its record up to date; returns the owner's unique name.
  std::optional<std::string> updateOrder(const std::string& busId);

  SessionBus bus_;
  /// By unique name.
  std::map<std::string, MprisPlayer> players_;
  SessionRecord record_ = SessionRecord::standard();
  /// Whether the record says what this object saw last.
  bool isRecorded_ = true;
  SessionOrder order_;
  /// The owner's unique name.
  std::optional<std::string> owner_;
  Artworks artworks_;

  MprisSignals signals_;
  Uptime nextConnection_;
  /// The first and the last change that `waitForChange` has not told of yet.
  std::optional<Uptime> firstChange_;
  Uptime lastChange_;
  /// When to ask again those that did not answer.
  std::optional<Uptime> nextQuestion_;
};

}  // namespace talmo
