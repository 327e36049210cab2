#pragma once

#include <chrono>

#include "support/Time.h"

namespace talmo {

/// A span of time as the frameworks take it (`NSTimeInterval`, `CFTimeInterval`).
constexpr double toSeconds(Duration duration) {
  return std::chrono::duration<double>(duration).count();
}

}  // namespace talmo
