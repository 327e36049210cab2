#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/x11/XConnection.h"

namespace talmo::test {

/// A hand on the keyboard: real key presses through the X server's test extension. Every function
/// returns when the server has taken what it did. Throws when the display cannot be reached or has
/// no such key.
class KeyPresser {
 public:
  /// `display` is a name as in $DISPLAY.
  explicit KeyPresser(const std::string& display);

  /// Keys are named by their keysym ("XF86AudioPlay", "a", "Shift_L"): the first key of the current
  /// map that gives it without modifiers. A key that stays down repeats.
  void press(const std::string& keysym) { press(keycode(keysym)); }
  void release(const std::string& keysym) { release(keycode(keysym)); }
  /// Presses and releases.
  void tap(const std::string& keysym) { tap(keycode(keysym)); }

  void press(std::uint8_t keycode);
  void release(std::uint8_t keycode);
  void tap(std::uint8_t keycode);

  std::uint8_t keycode(const std::string& keysym) const;

  /// How soon a key that stays down repeats, and how fast.
  void setRepeat(std::chrono::milliseconds delay, std::chrono::milliseconds interval);

  /// Presses a lock key ("Caps_Lock", "Num_Lock") and returns whether its modifier is on now.
  bool toggleLock(const std::string& keysym);

  /// Gives a key other keysyms: the first without modifiers, the second with Shift. An empty list
  /// takes them away.
  void remap(std::uint8_t keycode, const std::vector<std::string>& keysyms);

  /// A key of the map that gives nothing.
  std::uint8_t unusedKeycode() const;

  /// Whether the server has the key down.
  bool isDown(std::uint8_t keycode) const;

 private:
  void fake(std::uint8_t type, std::uint8_t keycode);

  std::unique_ptr<XConnection> connection_;
};

}  // namespace talmo::test
