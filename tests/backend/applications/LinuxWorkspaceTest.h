#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "tests/backend/applications/FakeWindowManager.h"
#include "tests/backend/applications/PlayersTest.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {

/// A test of the workspace on an empty machine.
class LinuxWorkspaceTest : public PlayersTest {
 protected:
  LinuxWorkspace& workspace() { return workspace_; }
  SimulatedLog& log() { return platform_.log(); }

  /// The identifiers of the running instances.
  std::vector<ProcessIdentifier> processes(const std::string& bundleID) {
    std::vector<ProcessIdentifier> found;
    for (const RunningApplication& application : workspace_.runningApplications(bundleID)) {
      found.push_back(application.processIdentifier);
    }
    return found;
  }

  /// A display with a window manager, which is the one that the backend finds.
  FakeWindowManager& windowManager() {
    if (!windowManager_) {
      display_ = std::make_unique<PrivateDisplay>();
      ::setenv("DISPLAY", display_->name().c_str(), 1);
      windowManager_ = std::make_unique<FakeWindowManager>(display_->name());
    }
    return *windowManager_;
  }
  PrivateDisplay& display() { return *display_; }

 private:
  TestPlatform platform_;
  LinuxDispatch dispatch_;
  LinuxWorkspace workspace_{dispatch_};
  std::unique_ptr<PrivateDisplay> display_;
  std::unique_ptr<FakeWindowManager> windowManager_;
};

}  // namespace talmo::test
