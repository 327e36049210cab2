#pragma once

#include <string>
#include <vector>

#include "players/PlayerDetection.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class PlayerDetectionTest : public ComponentTest {
 protected:
  using IDs = std::vector<std::string>;

  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* music = "com.apple.Music";
  static constexpr const char* vlc = "org.videolan.vlc";

  void install(const char* bundleID, std::optional<Date> lastUsed = std::nullopt) {
    machine().applications().install(
        {.bundleID = bundleID, .name = bundleID, .lastUsed = lastUsed});
  }

  static IDs idsOf(const std::vector<TargetApp>& players) {
    IDs ids;
    for (const TargetApp& player : players) ids.push_back(player.id);
    return ids;
  }

  /// The ids that one detection gives.
  IDs detected() {
    std::optional<IDs> ids;
    PlayerDetection::detect([&](const auto& players) { ids = idsOf(players); });
    EXPECT_TRUE(runUntil([&] { return ids.has_value(); }));
    return ids.value_or(IDs{"no answer"});
  }
};

}  // namespace talmo::test
