#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/PrivateSound.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A desktop of the test's own: X server, session bus, window manager, sound server, home folder.
/// Nothing of the person's session is touched. Everything that runs on it ends with it, what its
/// programs have started themselves included.
class PrivateDesktop {
 public:
  /// Brings all of it up and waits until it is ready. Throws when a piece does not come up.
  PrivateDesktop();
  ~PrivateDesktop();

  /// What a program needs to run on this desktop and nowhere else; empty is what it must not have.
  const std::map<std::string, std::string>& environment() const { return environment_; }

  /// Changes that for the programs that are started from now on.
  void setVariable(const std::string& name, const std::string& value) {
    environment_[name] = value;
  }

  /// Starts a program on this desktop; the rules are `TestProcess`'s.
  std::unique_ptr<TestProcess> start(std::vector<std::string> arguments) const;

  /// The processes on this desktop whose program file has this name, the ones that a program of it
  /// started included.
  std::vector<pid_t> processes(const std::string& programName) const;

  /// The value for DISPLAY.
  const std::string& displayName() const { return display_->name(); }

  /// The value for DBUS_SESSION_BUS_ADDRESS.
  const std::string& busAddress() const { return bus_->address(); }

  /// The X server and the session bus, for a test that ends them.
  TestProcess& xServer() { return display_->server(); }
  TestProcess& sessionBus() { return bus_->daemon(); }

  /// The folder that all of it lives in.
  const std::filesystem::path& folder() const { return folder_.path(); }
  std::filesystem::path configFolder() const { return folder() / "config"; }
  std::filesystem::path dataFolder() const { return folder() / "data"; }

 private:
  void makeEnvironment();
  void startWindowManager();
  /// Every process that was started with this desktop's environment.
  std::vector<pid_t> allProcesses() const;

  TemporaryFolder folder_;
  std::map<std::string, std::string> environment_;
  std::unique_ptr<PrivateDisplay> display_;
  std::unique_ptr<PrivateBus> bus_;
  std::unique_ptr<PrivateSound> sound_;
  std::unique_ptr<TestProcess> windowManager_;
};

}  // namespace talmo::test
