#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace talmo::test {

/// A program that a test started. It is ended, by its process id, when the object goes, and by the
/// system when the test itself dies.
class TestProcess {
 public:
  struct Start {
    /// The program (looked up in PATH) and its arguments.
    std::vector<std::string> arguments;
    /// Added to the test's own environment. An empty value takes a variable away from it.
    std::map<std::string, std::string> environment = {};
    /// A descriptor of the test that the program gets as its descriptor 3.
    std::optional<int> descriptor3 = std::nullopt;
  };

  /// Starts the program; its output and errors go to one file. Throws when that is impossible.
  explicit TestProcess(const Start& start);
  ~TestProcess();
  TestProcess(const TestProcess&) = delete;
  TestProcess& operator=(const TestProcess&) = delete;

  pid_t pid() const { return pid_; }

  bool isRunning();

  void signal(int number) const;

  /// Waits for the end; nothing when it did not come in time. The exit status, or minus the signal.
  std::optional<int> waitForExit(std::chrono::milliseconds timeout);

  /// Asks the program to end and waits; kills it when it does not.
  void end();

  /// Everything that it wrote so far.
  std::string output() const;

 private:
  void reap(int status);

  pid_t pid_ = -1;
  std::optional<int> exit_;
  std::filesystem::path outputFile_;
};

}  // namespace talmo::test
