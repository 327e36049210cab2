#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace talmo::test {

/// A key event as a window got it.
struct RecordedKey {
  /// The name of the keysym ("XF86AudioPlay", "a").
  std::string keysym;
  bool isPress = false;
  /// Sent by another client, not by the keyboard.
  bool isSynthetic = false;
  /// Modifiers and group, as in the event.
  std::uint16_t state = 0;

  bool operator==(const RecordedKey&) const = default;

  friend std::ostream& operator<<(std::ostream& stream, const RecordedKey& key) {
    return stream << (key.isPress ? "+" : "-") << key.keysym << (key.isSynthetic ? " sent" : "")
                  << " state " << key.state;
  }
};

}  // namespace talmo::test
