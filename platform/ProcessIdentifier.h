#pragma once

#include <cstdint>

namespace talmo {

/// The system's number for a process (`pid_t`).
using ProcessIdentifier = std::int32_t;

}  // namespace talmo
