#include "tests/support/RivalClient.h"

#include <stdexcept>

#include <xcb/xcb.h>

#include "platform/linux/x11/XReply.h"

namespace talmo::test {

RivalClient::RivalClient(const std::string& display) : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " to take keys on");
}

bool RivalClient::grab(std::uint8_t keycode, std::uint16_t modifiers) {
  const XReply<xcb_generic_error_t> error(
      xcb_request_check(connection_->get(),
                        xcb_grab_key_checked(connection_->get(), 0, connection_->root(), modifiers,
                                             keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
  return !error;
}

void RivalClient::ungrab(std::uint8_t keycode) {
  xcb_ungrab_key(connection_->get(), keycode, connection_->root(), XCB_MOD_MASK_ANY);
  settle();
}

bool RivalClient::grabKeyboard() {
  const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
      connection_->get(),
      xcb_grab_keyboard(connection_->get(), 0, connection_->root(), XCB_CURRENT_TIME,
                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
      nullptr));
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void RivalClient::ungrabKeyboard() {
  xcb_ungrab_keyboard(connection_->get(), XCB_CURRENT_TIME);
  settle();
}

const std::vector<std::uint8_t>& RivalClient::pressed() {
  settle();
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
    if ((event->response_type & 0x7F) != XCB_KEY_PRESS) continue;
    pressed_.push_back(reinterpret_cast<const xcb_key_press_event_t&>(*event).detail);
  }
  return pressed_;
}

void RivalClient::settle() {
  const XReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
      connection_->get(), xcb_get_input_focus(connection_->get()), nullptr));
}

}  // namespace talmo::test
