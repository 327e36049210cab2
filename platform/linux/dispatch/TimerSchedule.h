#pragma once

#include "support/Time.h"

namespace talmo {

/// The moment within `due` and `due + tolerance` at which a timer wakes the machine: the one that
/// lies on the coarsest grid of 1, 2, 4, 8, ... milliseconds, so that timers with some tolerance
/// wake it together. `due` itself when no whole millisecond lies in between.
Uptime coalescedInstant(Uptime due, Duration tolerance);

/// The first moment after `now` of the schedule `due + interval`, `due + 2 * interval`, ...
Uptime nextDue(Uptime due, Duration interval, Uptime now);

}  // namespace talmo
