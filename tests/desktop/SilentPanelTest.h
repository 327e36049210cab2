#pragma once

#include "tests/desktop/PanelTest.h"
#include "tests/support/FakePlayerProcess.h"

namespace talmo::test {

/// The panel on a desktop with two players, which are installed and run. Neither makes a sound, so
/// nothing on the panel moves by itself.
class SilentPanelTest : public PanelTest {
 protected:
  SilentPanelTest() {
    install("audacious", FakePlayerProcess::command("audacious"));
    install("strawberry", FakePlayerProcess::command("strawberry"));
  }

  FakePlayerProcess player_{desktop_, "audacious"};
  FakePlayerProcess otherPlayer_{desktop_, "strawberry"};
};

}  // namespace talmo::test
