#pragma once

#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AutomationPermissionTest : public ComponentTest {
 protected:
  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* music = "com.apple.Music";
};

}  // namespace talmo::test
