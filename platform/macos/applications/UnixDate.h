#pragma once

#include <optional>

#include "support/Time.h"

namespace talmo {

/// The date that is so many seconds after the first of January 1970, UTC. Nothing for what is no
/// number, and for what is further away than a `Date` reaches (292 years), as a distant past is.
std::optional<Date> dateFromUnixTime(double seconds);

}  // namespace talmo
