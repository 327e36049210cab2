#include "platform/linux/input/KeyboardRelay.h"

#include <algorithm>

#include "platform/linux/x11/XReply.h"

namespace talmo {
namespace {

void allow(const XConnection& connection, xcb_allow_t mode) {
  xcb_allow_events(connection.get(), static_cast<std::uint8_t>(mode), XCB_CURRENT_TIME);
}

xcb_grab_keyboard_cookie_t grabKeyboard(const XConnection& connection) {
  return xcb_grab_keyboard(connection.get(), 0, connection.root(), XCB_CURRENT_TIME,
                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
}

bool isGrabbed(const XConnection& connection, xcb_grab_keyboard_cookie_t cookie) {
  const XReply<xcb_grab_keyboard_reply_t> reply(
      xcb_grab_keyboard_reply(connection.get(), cookie, nullptr));
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

/// Grabs the pointer with both devices synchronous: neither moves, and nothing of either is lost.
bool freezeBoth(const XConnection& connection) {
  const XReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(
      connection.get(),
      xcb_grab_pointer(connection.get(), 0, connection.root(), 0, XCB_GRAB_MODE_SYNC,
                       XCB_GRAB_MODE_SYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME),
      nullptr));
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

/// Returns when the server has done all that was asked of it on this connection.
void waitForServer(const XConnection& connection) {
  const XReply<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr));
}

}  // namespace

bool KeyboardRelay::swallow(bool hold) {
  const XConnection& holding = holder();
  if (!hold) {
    xcb_ungrab_keyboard(holding.get(), XCB_CURRENT_TIME);
    xcb_flush(holding.get());
    isHeld_ = otherHolds_ = false;
    return false;
  }
  if (isHeld_) {
    allow(holding, XCB_ALLOW_SYNC_KEYBOARD);
    xcb_flush(holding.get());
    return true;
  }
  // The grab of the pressed key would end with that key's release, whatever else is down then.
  const xcb_grab_keyboard_cookie_t grab = grabKeyboard(holding);
  allow(holding, XCB_ALLOW_SYNC_KEYBOARD);
  xcb_flush(holding.get());
  isHeld_ = isGrabbed(holding, grab);
  return isHeld_;
}

bool KeyboardRelay::pass(bool hold) {
  const XConnection& holding = holder();
  if (!hold) {
    allow(holding, XCB_ALLOW_REPLAY_KEYBOARD);
    xcb_flush(holding.get());
    isHeld_ = otherHolds_ = false;
    return false;
  }
  const XConnection& idle = otherHolds_ ? grabber_ : other_;
  const XConnection& next = freezeBoth(idle) ? idle : holding;
  allow(holding, XCB_ALLOW_REPLAY_KEYBOARD);
  if (&next != &holding) waitForServer(holding);
  const xcb_grab_keyboard_cookie_t grab = grabKeyboard(next);
  xcb_ungrab_pointer(next.get(), XCB_CURRENT_TIME);
  const xcb_query_keymap_cookie_t query = xcb_query_keymap(next.get());
  allow(next, XCB_ALLOW_SYNC_KEYBOARD);
  xcb_flush(next.get());
  isHeld_ = isGrabbed(next, grab);
  otherHolds_ = isHeld_ && &next == &other_;
  const XReply<xcb_query_keymap_reply_t> keymap(xcb_query_keymap_reply(next.get(), query, nullptr));
  if (keymap) std::copy(std::begin(keymap->keys), std::end(keymap->keys), down_.begin());
  return isHeld_;
}

void KeyboardRelay::letGo() {
  const XConnection& holding = holder();
  allow(holding, XCB_ALLOW_REPLAY_KEYBOARD);
  xcb_ungrab_keyboard(holding.get(), XCB_CURRENT_TIME);
  waitForServer(holding);
  isHeld_ = otherHolds_ = false;
}

}  // namespace talmo
