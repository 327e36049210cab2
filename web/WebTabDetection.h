#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/RunningApplication.h"
#include "web/WebTabMatch.h"

namespace talmo {

/// Which browser tabs hold web players: the process-wide cache of the best tab per web player.
/// Any thread may call; the cache has a lock of its own.
class WebTabDetection {
 public:
  WebTabDetection() = delete;

  /// The cached tab of a web player, whatever its age; nothing when none is known.
  static std::optional<WebTabMatch> cachedMatch(const std::string& targetID);

  /// The running browser that holds the cached tab of a web player; nothing without a cached tab
  /// or when the browser has quit.
  static std::optional<RunningApplication> hostingRunningApplication(const std::string& targetID);

  /// Replaces the cache with the result of a scan: the best tab per web player, by target id.
  static void cache(std::map<std::string, WebTabMatch> matches);
};

}  // namespace talmo
