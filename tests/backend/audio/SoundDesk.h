#pragma once

#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/PrivateSound.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A sound server of the test's own, which is the one that the backend finds, and programs that
/// play on it.
class SoundDesk {
 public:
  /// A program that plays.
  struct Player {
    std::unique_ptr<TestProcess> process;
    /// The process that plays: the program's own, or that of its helper.
    pid_t playing = 0;
  };

  SoundDesk();
  ~SoundDesk();

  PrivateSound& server() { return *server_; }

  /// Ends the server, killing it, and what played on it.
  void killServer();
  void startServer();

  /// Starts a program of that file name that plays `streams` streams, and waits until it does.
  Player start(const std::string& name, int streams = 1);

  /// Starts a program that starts another one, which plays.
  Player startHelper(const std::string& application, const std::string& helper);

  /// Sends the program a signal and waits until it has answered with `word`.
  static void command(const Player& player, int signal, const std::string& word);

 private:
  std::string program(const std::string& name) const;
  static Player wait(std::unique_ptr<TestProcess> process);

  const TemporaryFolder folder_;
  std::unique_ptr<PrivateSound> server_;
};

}  // namespace talmo::test
