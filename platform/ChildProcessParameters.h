#pragma once

#include <string>
#include <vector>

#include "platform/ChildOutput.h"

namespace talmo {

/// What a child process is started with. It inherits the environment, its standard input is the
/// null device, and no shell is involved.
struct ChildProcessParameters {
  /// The program's absolute path.
  std::string executable;
  /// What follows the program's own name.
  std::vector<std::string> arguments;
  ChildOutput standardOutput = ChildOutput::pipe;
  ChildOutput standardError = ChildOutput::nullDevice;

  bool operator==(const ChildProcessParameters&) const = default;
};

}  // namespace talmo
