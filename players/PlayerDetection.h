#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "players/TargetApp.h"
#include "support/Time.h"

namespace talmo {

/// Which of the supported native players are installed, the most recently used first.
class PlayerDetection {
 public:
  /// An installed player, as it is ranked.
  struct Record {
    TargetApp app;
    /// Its place in `TargetAppRegistry::all`.
    std::size_t index = 0;
    /// When it was last used, where the system knows.
    std::optional<Date> date;
  };

  PlayerDetection() = delete;

  /// Detects in the background, then calls `completion` on the main queue. Requests complete in
  /// their order. Any thread.
  static void detect(std::function<void(std::vector<TargetApp>)> completion);

  /// The installed native players, ranked. It may block on the file system, so not on the main
  /// thread.
  static std::vector<TargetApp> detectSync();

  /// The players in the order of their last use, latest first and those without a date last; what
  /// that leaves open is in the order of the table. Stable.
  static std::vector<TargetApp> ranked(std::vector<Record> records);
};

}  // namespace talmo
