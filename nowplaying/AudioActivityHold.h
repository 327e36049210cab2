#pragma once

#include <chrono>
#include <map>
#include <set>
#include <string>

#include "support/Time.h"

namespace talmo {

/// Keeps an identifier for a while after it was last observed. A value; belongs to one thread.
struct AudioActivityHold {
  static constexpr Duration defaultLinger = std::chrono::seconds(4);

  Duration linger = defaultLinger;
  /// When each identifier was last observed.
  std::map<std::string, Uptime> lastSeen;

  /// Takes in what is observed at `now`; returns that and whatever was observed at most `linger`
  /// before.
  std::set<std::string> update(const std::set<std::string>& observed, Uptime now);
};

}  // namespace talmo
