#include "platform/macos/mediasession/ElapsedTime.h"

#include <algorithm>

namespace talmo {

double elapsedTimeNow(double elapsedTime, double age, double rate, std::optional<double> duration) {
  double now = elapsedTime + age * rate;
  // What the player itself says stands, should it be beyond what it takes for the end.
  if (duration) now = std::min(now, std::max(*duration, elapsedTime));
  return std::max(now, 0.0);
}

}  // namespace talmo
