#pragma once

#include <chrono>

namespace talmo {

/// A span of time. Every time-out, interval and delay of the program has this type.
using Duration = std::chrono::nanoseconds;

/// A point on the wall clock: for what is stored or shown as a date, and for ages of such dates.
using Date = std::chrono::time_point<std::chrono::system_clock, Duration>;

/// A point on the clock that never jumps back: for elapsed time.
using Uptime = std::chrono::time_point<std::chrono::steady_clock, Duration>;

}  // namespace talmo
