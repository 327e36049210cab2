#include "platform/linux/dispatch/TimerSchedule.h"

#include <algorithm>
#include <cstdint>

namespace talmo {

Uptime coalescedInstant(Uptime due, Duration tolerance) {
  if (tolerance <= Duration::zero()) return due;
  using std::chrono::milliseconds;
  const auto first = std::chrono::ceil<milliseconds>(due).time_since_epoch().count();
  auto last = std::chrono::floor<milliseconds>(due + tolerance).time_since_epoch().count();
  if (first <= 0 || last < first) return due;
  // Of the numbers up to `last`, the ones with fewer low bits lie on the coarser grids.
  while ((last & (last - 1)) >= first) last &= last - 1;
  return Uptime(milliseconds(last));
}

Uptime nextDue(Uptime due, Duration interval, Uptime now) {
  const std::int64_t missed = std::max<std::int64_t>((now - due) / interval, 0);
  return due + (missed + 1) * interval;
}

}  // namespace talmo
