#pragma once

#include <cstdint>
#include <string>

namespace talmo {

/// What a run of an AppleScript left. The texts are UTF-8, whatever was written.
struct OsascriptResult {
  /// The exit status, or the number of the signal that ended it.
  std::int32_t status = 0;
  std::string standardOutput;
  std::string standardError;

  bool operator==(const OsascriptResult&) const = default;
};

}  // namespace talmo
