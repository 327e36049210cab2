#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/linux/x11/XConnection.h"

namespace talmo::test {

/// A hand on the mouse: real motion and clicks through the X server's test extension. Every
/// function returns when the server has taken what it did. Throws when the display cannot be
/// reached.
class MousePresser {
 public:
  static constexpr std::uint8_t left = 1;
  static constexpr std::uint8_t right = 3;

  /// `display` is a name as in $DISPLAY.
  explicit MousePresser(const std::string& display);

  /// In pixels from the upper left corner of all screens.
  void moveTo(int x, int y);

  /// Moves there, presses and releases.
  void click(int x, int y, std::uint8_t button = left);

 private:
  void fake(std::uint8_t type, std::uint8_t detail, int x, int y);

  std::unique_ptr<XConnection> connection_;
};

}  // namespace talmo::test
