#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A real Chromium on a private desktop, with a profile of its own. It takes up to some ten seconds
/// to start, so tests share one where they can. It ends with the object.
class ChromiumProcess {
 public:
  struct Start {
    /// Further options, and the addresses to open, each in a tab of the first window.
    std::vector<std::string> arguments = {"about:blank"};
    /// The profile's folder; without one, "chromium" in the desktop's folder.
    std::filesystem::path profile;
    /// Whether it opens its remote debugging socket.
    bool hasSocket = true;
  };

  /// Whether there is a Chromium to start on this machine.
  static bool isInstalled();

  /// Starts it and waits until its debugging socket is open, or, without one, until it has locked
  /// its profile. Throws when it does not come so far.
  explicit ChromiumProcess(const PrivateDesktop& desktop);
  ChromiumProcess(const PrivateDesktop& desktop, const Start& start);

  /// Has the running browser open an address in a new tab of the window in front, or in a new
  /// window, and waits until it has taken the request. Throws when it does not.
  void open(const std::string& address) const;
  void openWindow(const std::string& address) const;
  /// The same with several addresses, each in a tab of the new window.
  void openWindow(const std::vector<std::string>& addresses) const;

  /// The program with what every start needs, the profile included. With an address behind it, it
  /// hands that over to the running browser.
  std::vector<std::string> command() const;

  /// Asks it to end as at the end of a session, and waits until its process is gone.
  void quit() { process_->end(); }

  TestProcess& process() { return *process_; }
  pid_t pid() const { return process_->pid(); }
  const std::filesystem::path& profile() const { return profile_; }

  /// Where its debugging socket is: what it wrote into its profile.
  int port() const { return port_; }
  const std::string& socketPath() const { return socketPath_; }

 private:
  bool readSocket();
  bool hasLockedProfile() const;
  void handOver(const std::vector<std::string>& arguments) const;

  const PrivateDesktop& desktop_;
  std::filesystem::path profile_;
  int port_ = 0;
  std::string socketPath_;
  std::unique_ptr<TestProcess> process_;
};

}  // namespace talmo::test
