#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

/// The window of the first run, and the coordinator that shows it.
class FirstRunTest : public ComponentTest {
 protected:
  /// The window that there is; nothing (a null pointer) when there is none.
  SimulatedWindow* window() {
    const auto& windows = machine().windows().windows();
    EXPECT_LE(windows.size(), 1U);
    return windows.empty() ? nullptr : windows.front();
  }

  std::shared_ptr<AppCoordinator> started() {
    auto coordinator = AppCoordinator::make();
    coordinator->start();
    return coordinator;
  }

  void setTrusted(bool trusted) { machine().accessibility().setTrusted(trusted); }
  void notify() { machine().distributedNotifications().post("com.apple.accessibility.api"); }

  /// Whether the status item says that something needs attention.
  bool isWarned() {
    return machine().statusBar().items().front()->image().name == "exclamationmark.triangle";
  }

  void pass(Duration time) {
    auto isLater = std::make_shared<bool>(false);
    machine().dispatch().mainQueue().asyncAfter(time, [isLater] { *isLater = true; });
    EXPECT_TRUE(runUntil([isLater] { return *isLater; }));
  }

  std::vector<std::string> log() { return machine().log().messages("coordinator"); }
};

}  // namespace talmo::test
