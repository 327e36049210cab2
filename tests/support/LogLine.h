#pragma once

#include <string>

#include "platform/LogLevel.h"

namespace talmo::test {

/// One line that was written to the log.
struct LogLine {
  LogLevel level = LogLevel::notice;
  std::string subsystem;
  std::string category;
  std::string message;

  bool operator==(const LogLine&) const = default;
};

}  // namespace talmo::test
