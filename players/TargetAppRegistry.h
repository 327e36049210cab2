#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "players/TargetApp.h"

namespace talmo {

/// The supported players. The lists are built once per platform, on first use by any thread, and
/// never change afterwards.
class TargetAppRegistry {
 public:
  TargetAppRegistry() = delete;

  /// The native players, in the order in which a default is looked for and players are listed: the
  /// fixed table, then the players that only this system has.
  static const std::vector<TargetApp>& all();

  /// The web players, one target each, in their registry's order.
  static const std::vector<TargetApp>& webApps();

  /// The target of that id, web targets first; nothing for an unknown id.
  static std::optional<TargetApp> app(std::string_view id);

  /// The id of the first installed native player; nothing when none is installed.
  static std::optional<std::string> defaultInstalledID();
};

}  // namespace talmo
