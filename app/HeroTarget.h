#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "players/TargetApp.h"
#include "support/Time.h"

namespace talmo {

/// Which player the panel's card is about: the pinned one, else the one that auto routing would
/// choose. Main thread only, which it never makes wait: what has to be asked of the system is asked
/// elsewhere, at most every two seconds, and the last answer counts meanwhile.
class HeroTarget : public std::enable_shared_from_this<HeroTarget> {
 public:
  /// `onChange` is called when an answer has come that is another than before.
  static std::shared_ptr<HeroTarget> make(std::function<void()> onChange);

  /// The player. `pinnedID` is a target's id or anything else; then come the owner of the media
  /// session and its title.
  std::optional<TargetApp> target(const std::optional<std::string>& pinnedID,
                                  const std::optional<std::string>& sessionOwner,
                                  const std::string& sessionTitle);

 private:
  explicit HeroTarget(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

  void refreshFallback();

  const std::function<void()> onChange_;
  /// What auto routing chooses when nothing tells it what plays.
  std::optional<std::string> fallbackID_;
  std::optional<Uptime> refreshedAt_;
};

}  // namespace talmo
