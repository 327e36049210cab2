#pragma once

#include <array>
#include <cstdint>

#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"

namespace talmo {

/// Says what becomes of the key event that froze the keyboard, and keeps the keyboard meanwhile.
///
/// A passive grab with the keyboard synchronous freezes it at each event until its client has
/// answered; events that follow wait in the server. Replaying an event gives up the grab and lets
/// the waiting ones go to the focused window. Where later events still matter, the keyboard is
/// therefore held by the two connections in turn: the other one freezes it through a grab of the
/// pointer, the event is replayed, and the other one takes the keyboard before anything moves. One
/// connection cannot do that alone: its replay undoes its own freeze, and a client may not grab
/// what another one froze.
class KeyboardRelay {
 public:
  /// `grabber` has the passive grabs. Both live longer than this object.
  KeyboardRelay(const XConnection& grabber, const XConnection& other)
      : grabber_(grabber), other_(other) {}

  /// Ends the frozen event here. With `hold` every key comes to us afterwards, one event at a time;
  /// otherwise the keyboard is free. Returns whether it is held.
  bool swallow(bool hold);

  /// Lets the frozen event go on to whoever would have got it; `hold` as above. It cannot hold when
  /// the event makes someone else take the keyboard. While someone else has the pointer, events
  /// that were waiting already go on as well.
  bool pass(bool hold);

  /// Frees the keyboard; an event that froze it goes on.
  void letGo();

  /// Whether the server had the key down when `pass` last took hold.
  bool wasDown(xcb_keycode_t keycode) const {
    return ((down_[keycode / 8] >> (keycode % 8)) & 1) != 0;
  }

 private:
  /// Whose event it is that froze the keyboard.
  const XConnection& holder() const { return otherHolds_ ? other_ : grabber_; }

  const XConnection& grabber_;
  const XConnection& other_;
  // Whether the keyboard is held beyond the passive grab that an event activated, and by which.
  bool isHeld_ = false;
  bool otherHolds_ = false;
  std::array<std::uint8_t, 32> down_{};
};

}  // namespace talmo
