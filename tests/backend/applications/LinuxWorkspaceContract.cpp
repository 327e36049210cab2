#include <fstream>
#include <map>
#include <stdexcept>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "tests/backend/applications/BusNames.h"
#include "tests/backend/applications/FakeWindowManager.h"
#include "tests/backend/applications/PlayersTest.h"
#include "tests/backend/applications/RecentFile.h"
#include "tests/contract/WorkspaceContract.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

/// Desktop entries in the test's own folder, and fake players as processes on a bus of the world's
/// own. A display is there from the first time that something is brought to its front.
class LinuxWorkspaceWorld : public WorkspaceWorld {
 public:
  LinuxWorkspaceWorld() {
    PrivateData::clear();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
  }
  ~LinuxWorkspaceWorld() override { ::unsetenv("DISPLAY"); }

  Workspace& workspace() override { return workspace_; }

  void install(const std::string& bundleID, const std::string& name) override {
    names_[bundleID] = name;
    PrivateData::install(entryID(bundleID), "Name=" + name +
                                                "\nExec=" + FakePlayerProcess::program() + " " +
                                                playerName(bundleID) + "\n");
  }

  void uninstall(const std::string& bundleID) override {
    PrivateData::uninstall(entryID(bundleID));
  }

  ProcessIdentifier launch(const std::string& bundleID) override {
    // The first instance has the plain name, as with real players.
    std::string name = playerName(bundleID);
    if (++launches_[bundleID] > 1) name += ".instance" + std::to_string(launches_[bundleID]);
    Instance instance{name, std::make_unique<FakePlayerProcess>(name)};
    const ProcessIdentifier process = instance.process->pid();
    processes_[process] = std::move(instance);
    return process;
  }

  void quit(ProcessIdentifier process) override {
    const Instance instance = std::move(processes_.at(process));
    processes_.erase(process);
    instance.process->process().end();
    waitUntilGone(instance.name);
  }

  void bringToFront(const std::string& bundleID) override {
    if (!windowManager_) {
      display_ = std::make_unique<PrivateDisplay>();
      ::setenv("DISPLAY", display_->name().c_str(), 1);
      windowManager_ = std::make_unique<FakeWindowManager>(display_->name());
    }
    xcb_window_t window = XCB_WINDOW_NONE;
    if (!bundleID.empty()) {
      const auto windowClass = LinuxApplications::withBundleID(bundleID)->windowClasses.front();
      window = windowManager_->add(std::string(windowClass), 0);
    }
    windowManager_->activate(window);
  }

  void use(const std::string& bundleID, Date when) override {
    addToRecentFiles({.url = "file:///music/" + std::to_string(++uses_) + ".ogg",
                      .applicationName = names_.at(bundleID),
                      .command = "player %u",
                      .when = when});
  }

 private:
  struct Instance {
    std::string name;
    std::unique_ptr<FakePlayerProcess> process;
  };

  static std::string entryID(const std::string& bundleID) {
    return std::string(LinuxApplications::withBundleID(bundleID)->desktopIDs.front());
  }
  static std::string playerName(const std::string& bundleID) {
    return std::string(LinuxApplications::withBundleID(bundleID)->playerNames.front());
  }

  TestPlatform platform_;
  LinuxDispatch dispatch_;
  PrivateBus bus_;
  std::unique_ptr<PrivateDisplay> display_;
  std::unique_ptr<FakeWindowManager> windowManager_;
  LinuxWorkspace workspace_{dispatch_};
  std::map<std::string, std::string> names_;
  std::map<std::string, int> launches_;
  std::map<ProcessIdentifier, Instance> processes_;
  int uses_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Linux, WorkspaceContract,
                         testing::Values([]() -> std::unique_ptr<WorkspaceWorld> {
                           return std::make_unique<LinuxWorkspaceWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
