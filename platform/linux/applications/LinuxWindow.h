#pragma once

#include <string>
#include <vector>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// What a window says of the application that it belongs to.
struct LinuxWindow {
  /// Both halves of WM_CLASS; empty when it has none.
  std::vector<std::string> classes;
  /// _NET_WM_PID; 0 when it has none.
  ProcessIdentifier process = 0;
};

}  // namespace talmo
