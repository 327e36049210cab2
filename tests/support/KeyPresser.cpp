#include "tests/support/KeyPresser.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

#include "platform/linux/input/XkbProtocol.h"
#include "platform/linux/input/XKeymap.h"
#include "platform/linux/x11/XReply.h"

namespace talmo::test {
namespace {

std::uint16_t lockedModifiers(const XConnection& connection) {
  const XReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
      connection.get(), xcb_xkb_get_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
  return state ? state->lockedMods : std::uint16_t{0};
}

}  // namespace

KeyPresser::KeyPresser(const std::string& display) : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " to press keys on");
  const XReply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
      connection_->get(), xcb_xkb_use_extension(connection_->get(), 1, 0), nullptr));
  if (!reply) throw std::runtime_error("the display has no keyboard extension");
}

void KeyPresser::press(std::uint8_t keycode) {
  fake(XCB_KEY_PRESS, keycode);
}

void KeyPresser::release(std::uint8_t keycode) {
  fake(XCB_KEY_RELEASE, keycode);
}

void KeyPresser::tap(std::uint8_t keycode) {
  press(keycode);
  release(keycode);
}

std::uint8_t KeyPresser::keycode(const std::string& keysym) const {
  const xkb_keysym_t wanted = xkb_keysym_from_name(keysym.c_str(), XKB_KEYSYM_NO_FLAGS);
  const std::unique_ptr<XKeymap> keymap = XKeymap::load(*connection_);
  if (keymap && wanted != XKB_KEY_NoSymbol) {
    for (const XKeyPlace& place : keymap->places(wanted)) {
      if (place.modifiers == 0) return place.keycode;
    }
  }
  throw std::runtime_error("no key gives " + keysym);
}

void KeyPresser::setRepeat(std::chrono::milliseconds delay, std::chrono::milliseconds interval) {
  const std::array<std::uint8_t, 32> perKeyRepeat{};
  // Of all controls only the two of the repeat change; the zeros say nothing.
  xcb_xkb_set_controls(connection_->get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                       0, 0, XCB_XKB_BOOL_CTRL_REPEAT_KEYS,
                       static_cast<std::uint16_t>(delay.count()),
                       static_cast<std::uint16_t>(interval.count()), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                       0, 0, perKeyRepeat.data());
  lockedModifiers(*connection_);
}

bool KeyPresser::toggleLock(const std::string& keysym) {
  const std::uint16_t before = lockedModifiers(*connection_);
  tap(keysym);
  return (lockedModifiers(*connection_) & ~before) != 0;
}

void KeyPresser::remap(std::uint8_t keycode, const std::vector<std::string>& keysyms) {
  std::array<xcb_keysym_t, 2> list{};
  for (std::size_t index = 0; index < keysyms.size(); ++index) {
    list.at(index) = xkb_keysym_from_name(keysyms[index].c_str(), XKB_KEYSYM_NO_FLAGS);
  }
  const XReply<xcb_generic_error_t> error(xcb_request_check(
      connection_->get(), xcb_change_keyboard_mapping_checked(connection_->get(), 1, keycode,
                                                              list.size(), list.data())));
  if (error) throw std::runtime_error("the display did not take a keyboard map");
}

std::uint8_t KeyPresser::unusedKeycode() const {
  const XReply<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
      connection_->get(), xcb_get_keyboard_mapping(connection_->get(), 8, 248), nullptr));
  if (!map) throw std::runtime_error("the display gave no keyboard map");
  const xcb_keysym_t* const keysyms = xcb_get_keyboard_mapping_keysyms(map.get());
  const std::size_t width = map->keysyms_per_keycode;
  for (std::size_t key = 0; key < 248; ++key) {
    const xcb_keysym_t* const first = keysyms + key * width;
    if (std::all_of(first, first + width, [](xcb_keysym_t keysym) { return keysym == 0; })) {
      return static_cast<std::uint8_t>(8 + key);
    }
  }
  throw std::runtime_error("every key of the map is in use");
}

bool KeyPresser::isDown(std::uint8_t keycode) const {
  const XReply<xcb_query_keymap_reply_t> reply(
      xcb_query_keymap_reply(connection_->get(), xcb_query_keymap(connection_->get()), nullptr));
  return reply && ((reply->keys[keycode / 8] >> (keycode % 8)) & 1) != 0;
}

void KeyPresser::fake(std::uint8_t type, std::uint8_t keycode) {
  xcb_generic_error_t* const error = xcb_request_check(
      connection_->get(), xcb_test_fake_input_checked(connection_->get(), type, keycode,
                                                      XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0));
  const XReply<xcb_generic_error_t> owned(error);
  if (error != nullptr || connection_->isDead()) {
    throw std::runtime_error("the display did not take a key");
  }
}

}  // namespace talmo::test
