#pragma once

#include <memory>
#include <string>

#include "app/AppCoordinator.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AppCoordinatorTest : public ComponentTest {
 protected:
  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* vlc = "org.videolan.vlc";

  /// A coordinator that has started with this selection; nothing for a fresh install.
  std::shared_ptr<AppCoordinator> started(const std::optional<std::string>& selection) {
    machine().userDefaults().setString("selectedTargetAppID", selection);
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
