#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/AppleEventsWorld.h"

namespace talmo::test {

/// What every `AppleEvents` does. Instantiated once per backend, with what makes a fresh world.
class AppleEventsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<AppleEventsWorld>()>> {
 protected:
  using Manner = AppleEventsWorld::Manner;
  using PlayerState = AppleEventsWorld::PlayerState;

  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* rhythmbox = "org.gnome.Rhythmbox3";
  static constexpr const char* unknown = "com.example.nobody";

  AppleEventsWorld& world() { return *world_; }

  std::optional<std::int32_t> consent(const std::string& bundleID) {
    return world_->appleEvents().determinePermission(bundleID, false);
  }

  /// The scripting object of a player that exists, with a time-out of two seconds.
  std::unique_ptr<ScriptingObject> object(const std::string& bundleID);

  /// The player's current track, which it has.
  static std::shared_ptr<ScriptingObject> currentTrack(ScriptingObject& player);

  /// The text that the property holds, if it holds one.
  static std::optional<std::string> text(ScriptingObject& object, const char* property);

  /// The code of the player's state, which it tells.
  static std::uint32_t code(ScriptingObject& player);

 private:
  const std::unique_ptr<AppleEventsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
