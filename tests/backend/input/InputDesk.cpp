#include "tests/backend/input/InputDesk.h"

#include <chrono>
#include <cstdlib>

namespace talmo::test {

InputDesk::InputDesk() {
  ::setenv("DISPLAY", display.name().c_str(), 1);
  // A key repeats only where a test asks for it.
  keyboard.setRepeat(std::chrono::seconds(30), std::chrono::seconds(1));
  window = std::make_unique<FocusWindow>(display.name());
  window->focus();
}

InputDesk::~InputDesk() {
  ::unsetenv("DISPLAY");
}

bool InputDesk::runUntil(const std::function<bool()>& condition, Duration limit) {
  return dispatch.serveMainQueueUntil(condition, dispatch.uptime() + limit);
}

}  // namespace talmo::test
