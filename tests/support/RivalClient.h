#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/x11/XConnection.h"

namespace talmo::test {

/// Another program on a display that takes keys for itself. Every function returns when the server
/// has done what it asks. Throws when the display cannot be reached.
class RivalClient {
 public:
  /// `display` is a name as in $DISPLAY.
  explicit RivalClient(const std::string& display);

  /// Grabs a key under these modifiers; returns whether it could.
  bool grab(std::uint8_t keycode, std::uint16_t modifiers = 0);

  /// Gives up a key, whatever its modifiers.
  void ungrab(std::uint8_t keycode);

  /// Takes the whole keyboard, as menus and screen lockers do; returns whether it could.
  bool grabKeyboard();
  void ungrabKeyboard();

  /// The keycodes of all presses that came to it so far, in order.
  const std::vector<std::uint8_t>& pressed();

 private:
  void settle();

  std::unique_ptr<XConnection> connection_;
  std::vector<std::uint8_t> pressed_;
};

}  // namespace talmo::test
