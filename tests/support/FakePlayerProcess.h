#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// The fake player as a process on a private desktop: it takes commands and plays nothing.
class FakePlayerProcess {
 public:
  /// What starts a fake player that calls itself `name` on the bus ("audacious").
  static std::vector<std::string> command(const std::string& name,
                                          const std::vector<std::string>& options = {});

  /// Starts one and waits until it is on the bus. Throws when it does not come up.
  FakePlayerProcess(const PrivateDesktop& desktop, const std::string& name,
                    const std::vector<std::string>& options = {});

  TestProcess& process() { return *process_; }

  /// The commands that it got, in order, by their MPRIS names: "PlayPause", "Next", "Previous".
  std::vector<std::string> commands() const;

  /// Waits until it got at least `count` commands.
  bool waitForCommands(std::size_t count) const;

 private:
  std::unique_ptr<TestProcess> process_;
};

}  // namespace talmo::test
