#pragma once

#include <cstdint>

namespace talmo {

/// Stands for one window of this process while it exists; 0 is no window.
using WindowIdentifier = std::uint64_t;

}  // namespace talmo
