#include "platform/macos/applications/UnixDate.h"

#include <chrono>
#include <cmath>

namespace talmo {
namespace {

// Some weeks short of what 64 bits of nanoseconds hold.
constexpr double furthest = 9.22e9;

}  // namespace

std::optional<Date> dateFromUnixTime(double seconds) {
  if (!(std::abs(seconds) <= furthest)) return std::nullopt;
  return Date(std::chrono::duration_cast<Duration>(std::chrono::duration<double>(seconds)));
}

}  // namespace talmo
