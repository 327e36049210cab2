#pragma once

#include <algorithm>
#include <dispatch/dispatch.h>

#include "support/Time.h"

namespace talmo {

/// The time when `delay` has passed, which a negative one already has. Stands still while the
/// machine sleeps.
inline dispatch_time_t timeAfter(Duration delay) {
  return dispatch_time(DISPATCH_TIME_NOW, std::max(delay, Duration::zero()).count());
}

}  // namespace talmo
