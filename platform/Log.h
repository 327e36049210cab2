#pragma once

#include <string_view>

#include "platform/LogLevel.h"

namespace talmo {

/// The system's unified log.
///
/// Called by every component through `Logger`, on any thread, never on a path that must not
/// allocate. A line that cannot be written is lost; the caller is not told.
class Log {
 public:
  virtual ~Log() = default;

  /// Writes one line. `message` is finished text; it may hold any bytes, and a backend keeps it on
  /// one line.
  virtual void write(LogLevel level, std::string_view subsystem, std::string_view category,
                     std::string_view message) = 0;
};

}  // namespace talmo
