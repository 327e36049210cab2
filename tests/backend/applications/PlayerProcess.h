#pragma once

#include <string>
#include <vector>

#include "tests/support/TestProcess.h"

namespace talmo::test {

/// The fake player as a process of its own, on the bus of DBUS_SESSION_BUS_ADDRESS.
class PlayerProcess {
 public:
  /// The file of the program.
  static std::string program();

  /// `name` is what follows "org.mpris.MediaPlayer2."; `program` may be a copy under another name.
  /// Returns when the player is on the bus; throws when it does not come up.
  explicit PlayerProcess(const std::string& name, const std::vector<std::string>& options = {},
                         const std::string& program = PlayerProcess::program());

  pid_t pid() const { return process_.pid(); }
  TestProcess& process() { return process_; }

  /// The commands that it got, by their MPRIS names.
  std::vector<std::string> received() const;

 private:
  TestProcess process_;
};

}  // namespace talmo::test
