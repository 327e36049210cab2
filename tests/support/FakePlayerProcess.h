#pragma once

#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// The fake player as a process of its own: it takes commands and plays nothing.
class FakePlayerProcess {
 public:
  /// The file of the program.
  static std::string program();

  /// What starts a fake player. `name` is what follows "org.mpris.MediaPlayer2." in its bus name;
  /// the options are the program's.
  static std::vector<std::string> command(const std::string& name,
                                          const std::vector<std::string>& options = {});

  /// Starts one on the bus of DBUS_SESSION_BUS_ADDRESS and returns when it is there. Throws when it
  /// does not come up.
  explicit FakePlayerProcess(const std::string& name, const std::vector<std::string>& options = {});

  /// The same on a private desktop.
  FakePlayerProcess(const PrivateDesktop& desktop, const std::string& name,
                    const std::vector<std::string>& options = {});

  pid_t pid() const { return process_->pid(); }
  TestProcess& process() { return *process_; }

  /// The commands that it got, in order, by their MPRIS names: "PlayPause", "Next", "Previous".
  std::vector<std::string> received() const;

  /// Waits until it got at least `count` commands.
  bool waitForCommands(std::size_t count) const;

 private:
  explicit FakePlayerProcess(std::unique_ptr<TestProcess> process);

  std::unique_ptr<TestProcess> process_;
};

}  // namespace talmo::test
