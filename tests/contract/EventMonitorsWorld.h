#pragma once

#include <cstdint>
#include <vector>

#include "platform/EventMonitors.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A desktop with a window of this program, which has the keys, one of another application, and a
/// person with mouse and keyboard.
class EventMonitorsWorld : public DispatchWorld {
 public:
  virtual EventMonitors& eventMonitors() = 0;

  /// The program's window.
  virtual WindowIdentifier window() = 0;

  /// Presses and releases the left button of the mouse in a window.
  virtual void clickWindow() = 0;
  virtual void clickElsewhere() = 0;

  /// Presses and releases a key (its virtual key code: 36, 48, 49, 76, 125 or 126) with the
  /// modifiers held; the program's window has the keys.
  virtual void pressKey(std::uint16_t keyCode, std::uint64_t modifiers) = 0;

  /// The key codes of the presses that the program's window got, in order.
  virtual std::vector<std::uint16_t> receivedKeys() = 0;
};

}  // namespace talmo::test
