#pragma once

#include <span>
#include <string>

#include "platform/linux/osascript/BrowserResolver.h"

namespace talmo {

/// What a run of the program `osascript` writes, and its exit status: 0 when its script ran to its
/// end, 1 when the script was not understood or stopped, 2 when the arguments are wrong.
struct Osascript {
  int status = 0;
  std::string output;
  std::string errors;

  /// Runs what the arguments say, which follow the program's own name: `-e` and a script, or one
  /// line of it each.
  static Osascript run(std::span<const std::string> arguments, const BrowserResolver& browsers);
};

}  // namespace talmo
