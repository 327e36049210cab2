#pragma once

#include <optional>

namespace talmo {

/// Where a track is now, in seconds, that was at `elapsedTime` when its player last said so, `age`
/// seconds ago, and has gone on at `rate` since: never before its beginning, nor beyond its end
/// where that is known.
double elapsedTimeNow(double elapsedTime, double age, double rate, std::optional<double> duration);

}  // namespace talmo
