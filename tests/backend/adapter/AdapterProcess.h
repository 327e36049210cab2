#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "platform/linux/FileDescriptor.h"

namespace talmo::test {

/// A program with a pipe for its output and one for its errors. Killed, by its process id, when the
/// object goes.
class AdapterProcess {
 public:
  struct Start {
    /// The program's path and its arguments.
    std::vector<std::string> arguments;
    /// Added to the test's own environment.
    std::map<std::string, std::string> environment = {};
    /// Whether it is started without a standard output.
    bool isOutputClosed = false;
  };

  /// Throws when the program cannot be started.
  explicit AdapterProcess(const Start& start);
  ~AdapterProcess();
  AdapterProcess(const AdapterProcess&) = delete;
  AdapterProcess& operator=(const AdapterProcess&) = delete;

  pid_t pid() const { return pid_; }

  /// Waits for the next line of its output; without its line feed. Nothing when none came in time
  /// or the output has ended.
  std::optional<std::string> nextLine();

  /// Waits until nobody can write to the output any more. Whether that came in time.
  bool waitForEndOfOutput();

  /// Reads the output no more.
  void closeOutput() { output_.reset(); }

  /// Waits for its end and gives its exit status, or minus the signal; nothing when the end did not
  /// come in time.
  std::optional<int> waitForExit();

  /// What it wrote and was not yet taken as a line, up to the end.
  std::string restOfOutput();
  std::string errors();

 private:
  pid_t pid_ = -1;
  std::optional<int> exit_;
  FileDescriptor output_;
  FileDescriptor errors_;
  std::string unread_;
};

}  // namespace talmo::test
