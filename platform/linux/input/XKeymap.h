#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

#include "platform/linux/input/XKeyPlace.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

/// The map of the server's keyboard: which key gives which keysym. It is as it was when loaded; the
/// server tells of changes. For one thread at a time.
class XKeymap {
 public:
  /// Loads the map, which takes the server some milliseconds; nothing when the connection has died
  /// or the server has no XKB. Prepares the connection for XKB, so that the state of its key events
  /// carries the group.
  static std::unique_ptr<XKeymap> load(const XConnection& connection);

  /// Has the server tell this connection when the map changes.
  static void watch(const XConnection& connection);

  /// Whether an event of that connection says that the map, or the keyboard, has changed.
  static bool isChange(const XConnection& connection, const xcb_generic_event_t& event);

  /// The keysym that a key gives under the state of a key event (modifiers in bits 0 to 7, group in
  /// bits 13 and 14). Allocates nothing.
  xkb_keysym_t keysym(xcb_keycode_t keycode, std::uint16_t state) const;

  /// The state, as above, in which a key under these modifiers gives the keysym: the first group
  /// that does; nothing when none does.
  std::optional<std::uint16_t> stateFor(XKeyPlace place, xkb_keysym_t keysym) const;

  /// Every key that carries the keysym, in any group and on any level, by ascending keycode, each
  /// with the fewest modifiers that give it there.
  std::vector<XKeyPlace> places(xkb_keysym_t keysym) const;

  /// Every combination of the lock modifiers of this map, none of them included: Caps Lock, and
  /// whichever bits Num Lock and Scroll Lock have.
  const std::vector<std::uint16_t>& lockCombinations() const { return lockCombinations_; }

 private:
  struct Unref {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
  };
  using Keymap = std::unique_ptr<xkb_keymap, Unref>;
  using State = std::unique_ptr<xkb_state, Unref>;

  XKeymap(Keymap keymap, State state) : keymap_(std::move(keymap)), state_(std::move(state)) {}

  void findLocks(const XConnection& connection);

  const Keymap keymap_;
  // Scratch space of `keysym`.
  const State state_;
  std::vector<std::uint16_t> lockCombinations_;
};

}  // namespace talmo
