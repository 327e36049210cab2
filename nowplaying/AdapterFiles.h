#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ChildOutput.h"
#include "platform/ChildProcessParameters.h"

namespace talmo {

/// The adapter as it is delivered with the program.
struct AdapterFiles {
  /// Absolute paths of the script and the framework.
  std::string script;
  std::string framework;

  /// Where the script is said to be; nothing when the program was delivered without. Any thread.
  static std::optional<std::string> scriptPath();

  /// Looks for both; when one is missing, says so in the log and gives nothing. Any thread.
  static std::optional<AdapterFiles> find();

  /// A run of the adapter with these further arguments; its standard output is a pipe.
  ChildProcessParameters run(const std::vector<std::string>& arguments,
                             ChildOutput standardError) const;
};

}  // namespace talmo
