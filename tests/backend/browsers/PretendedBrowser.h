#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A process that runs a program with a browser's name and does nothing.
class PretendedBrowser {
 public:
  /// Puts a shell at that path.
  static void install(const std::filesystem::path& program);

  /// Starts the program with a browser's options and waits until it runs. `script` is what the
  /// shell does with its time.
  explicit PretendedBrowser(const std::filesystem::path& program,
                            const std::vector<std::string>& options = {},
                            const std::map<std::string, std::string>& environment = {},
                            const std::string& script = "kill -STOP $$");

  pid_t pid() const { return process_.pid(); }

 private:
  TestProcess process_;
};

}  // namespace talmo::test
