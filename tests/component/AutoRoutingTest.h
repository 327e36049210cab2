#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tests/component/AppCoordinatorTest.h"
#include "tests/component/SimulatedBrowsers.h"

namespace talmo::test {

/// A machine with players and browsers, and a coordinator in auto mode.
class AutoRoutingTest : public AppCoordinatorTest {
 protected:
  using Kind = SimulatedBrowsers::Kind;
  using Script = SimulatedBrowsers::Script;

  static constexpr const char* chrome = "com.google.Chrome";
  static constexpr const char* watchPage = "https://www.youtube.com/watch?v=1";
  static constexpr const char* soundCloudPage = "https://soundcloud.com/artist/song";

  SimulatedBrowsers& browsers() { return browsers_; }

  ProcessIdentifier launchPlayer(const char* bundleID, const char* name) {
    machine().applications().install({bundleID, name});
    return machine().applications().launch(bundleID);
  }

  bool runUntilLogged(const std::string& line, std::ptrdiff_t times = 1) {
    return runUntil([&] { return std::ranges::count(log(), line) >= times; });
  }

  std::vector<std::string> log() { return machine().log().messages("coordinator"); }
  std::vector<std::string> webLog() { return machine().log().messages("web-tab"); }

 private:
  SimulatedBrowsers browsers_{machine()};
};

}  // namespace talmo::test
