#pragma once

#include <memory>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/input/LinuxEventTap.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {

/// A private display, which is $DISPLAY while it lives, with a focused window, a hand on its
/// keyboard, and the services of the real input.
class InputDesk {
 public:
  InputDesk();
  ~InputDesk();

  /// Serves the main queue until `condition` holds; returns whether it did in time.
  bool runUntil(const std::function<bool()>& condition, Duration limit = std::chrono::seconds(20));

  PrivateDisplay display;
  LinuxDispatch dispatch;
  LinuxEventTap eventTap;
  TestPlatform platform{{.dispatch = &dispatch, .eventTap = &eventTap}};
  KeyPresser keyboard{display.name()};
  std::unique_ptr<FocusWindow> window;
};

}  // namespace talmo::test
