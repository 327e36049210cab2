#pragma once

#include <string>
#include <vector>

#include "platform/AppleEvents.h"
#include "support/Time.h"

namespace talmo::test {

/// The surroundings of an `AppleEvents` under test: scriptable players that the suite starts by
/// their bundle identifiers, whose consent is given. At first nothing runs.
struct AppleEventsWorld {
  /// How a running player takes commands.
  enum class Manner { answers, fails, neverAnswers };

  enum class PlayerState { stopped, paused, playing };

  /// What is empty the track does not have.
  struct Track {
    std::string name;
    std::string artist;
    std::string artworkUrl;
  };

  virtual ~AppleEventsWorld() = default;

  virtual AppleEvents& appleEvents() = 0;

  /// Has a player installed and running that answers.
  virtual void startPlayer(const std::string& bundleID) = 0;

  /// Ends a player; from the return on it is gone.
  virtual void quitPlayer(const std::string& bundleID) = 0;

  /// Changes how a running player takes commands.
  virtual void setManner(const std::string& bundleID, Manner manner) = 0;

  /// What the player was told while it answered: the selector names, in order.
  virtual std::vector<std::string> received(const std::string& bundleID) = 0;

  /// Changes the current track of a running player; without a name it has none.
  virtual void setTrack(const std::string& bundleID, const Track& track) = 0;

  /// Changes what a running player does.
  virtual void setPlayerState(const std::string& bundleID, PlayerState state) = 0;

  /// The clock by which the sends and reads take their time.
  virtual Uptime now() = 0;
};

}  // namespace talmo::test
