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

  /// The clock by which the sends take their time.
  virtual Uptime now() = 0;
};

}  // namespace talmo::test
