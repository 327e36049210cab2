#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "support/Time.h"

namespace talmo {

/// The date so many seconds after 1970 began; nothing for one that is earlier, or too late for a
/// `Date`. For what other programs wrote: their numbers can be anything.
inline std::optional<Date> dateOfUnixTime(std::int64_t seconds) {
  constexpr auto latest =
      std::chrono::duration_cast<std::chrono::seconds>(Date::max().time_since_epoch());
  if (seconds < 0 || seconds >= latest.count()) return std::nullopt;
  return Date(std::chrono::seconds(seconds));
}

}  // namespace talmo
