#pragma once

#include <memory>
#include <vector>

#include "permissions/AccessibilityPermission.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AccessibilityPermissionTest : public ComponentTest {
 protected:
  static constexpr const char* grantedBefore = "hasBeenAccessibilityTrusted";
  static constexpr const char* settingsURL =
      "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

  /// A permission that writes down what it tells.
  std::shared_ptr<AccessibilityPermission> make() {
    const auto permission = AccessibilityPermission::make();
    permission->onChange = [this](bool isTrusted) { changes.push_back(isTrusted); };
    permission->onStaleTrustSuspected = [this] { ++suspicions; };
    return permission;
  }

  void setTrusted(bool trusted) { machine().accessibility().setTrusted(trusted); }

  /// Has the system say that somebody's grant has changed, and lets everything come of it.
  void notify() {
    machine().distributedNotifications().post("com.apple.accessibility.api");
    bool isLater = false;
    machine().dispatch().mainQueue().asyncAfter(std::chrono::milliseconds(400),
                                                [&] { isLater = true; });
    EXPECT_TRUE(runUntil([&] { return isLater; }));
  }

  bool isGrantStored() { return machine().userDefaults().boolean(grantedBefore); }

  std::vector<bool> changes;
  int suspicions = 0;
};

}  // namespace talmo::test
