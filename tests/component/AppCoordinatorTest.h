#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppCoordinator.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AppCoordinatorTest : public ComponentTest {
 protected:
  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* vlc = "org.videolan.vlc";

  /// A coordinator that has started with this selection, or without one, after the first run.
  std::shared_ptr<AppCoordinator> started(const std::optional<std::string>& selection) {
    machine().userDefaults().setString("selectedTargetAppID", selection);
    machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
    const auto coordinator = AppCoordinator::make();
    coordinator->start();
    return coordinator;
  }

  /// Posts an event and runs until it was consumed or passed.
  void press(std::int32_t code, bool isKeyDown = true, bool isRepeat = false) {
    const std::size_t before = decided();
    machine().eventTap().postMediaKey(code, isKeyDown, isRepeat);
    EXPECT_TRUE(runUntil([&] { return decided() > before; }));
  }

  /// Grants trust or takes it back, and has the system tell.
  void setTrusted(bool trusted) {
    machine().accessibility().setTrusted(trusted);
    machine().distributedNotifications().post("com.apple.accessibility.api");
  }

  /// To what trust has changed, in order, as the log has it.
  std::vector<std::string> changes() {
    static constexpr std::string_view text = "Accessibility permission changed: ";
    std::vector<std::string> found;
    for (const std::string& line : machine().log().messages("coordinator")) {
      if (line.starts_with(text)) found.push_back(line.substr(text.size()));
    }
    return found;
  }

  std::size_t decided() {
    return machine().eventTap().consumed().size() + machine().eventTap().passed().size();
  }

  std::size_t commands(const std::string& bundleID) {
    return machine().applications().commands(bundleID).size();
  }

  static std::string urlOf(const std::string& bundleID) {
    return "file:///Applications/" + bundleID + ".app/";
  }
};

}  // namespace talmo::test
