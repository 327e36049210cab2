#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/input/XKeymap.h"
#include "platform/linux/input/XKeyPlace.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

/// The passive grabs of the media keys: every key of the map that carries one of their keysyms, on
/// the root window, with the keyboard synchronous, under the modifiers that the keysym needs
/// together with every combination of the lock modifiers. For the thread of its connection, and
/// gone with the connection.
class MediaKeyGrabs {
 public:
  explicit MediaKeyGrabs(const XConnection& connection) : connection_(connection) {}

  /// Loads the keyboard's map and changes the grabs by what has changed in it. False when a key
  /// could not be had, after a log line with the first such key's name; the others are grabbed. It
  /// is tried again the next time.
  bool update();

  /// Grabs each of them and gives it up again in the same breath, to see whether they could be had;
  /// what is in the way, in words, or nothing when they could. A key that is pressed in between
  /// goes where it would have gone. Not beside grabs of this connection.
  std::optional<std::string> obstacle() const;

  /// The auxiliary-control key type of a key under the state of a key event; 0 when that is not one
  /// of the keys that are grabbed. Allocates nothing.
  std::uint8_t code(xcb_keycode_t keycode, std::uint16_t state) const;

 private:
  using Keys = std::map<XKeyPlace, xkb_keysym_t>;
  using Key = Keys::value_type;
  using Request = std::pair<Key, xcb_void_cookie_t>;

  static Keys wanted(const XKeymap& keymap);
  Request grab(const Key& key) const;
  bool isGranted(const Request& request) const;
  static std::size_t bit(XKeyPlace place) {
    return std::size_t{place.keycode} << 8 | (place.modifiers & 0xFF);
  }

  const XConnection& connection_;
  std::unique_ptr<XKeymap> keymap_;
  Keys grabbed_;
  // The same as `grabbed_`, for looking up.
  std::bitset<std::size_t{256} * 256> isGrabbed_;
};

}  // namespace talmo
