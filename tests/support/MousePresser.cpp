#include "tests/support/MousePresser.h"

#include <stdexcept>

#include <xcb/xtest.h>

#include "platform/linux/x11/XReply.h"

namespace talmo::test {

MousePresser::MousePresser(const std::string& display) : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " to click on");
}

void MousePresser::moveTo(int x, int y) {
  fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void MousePresser::click(int x, int y, std::uint8_t button) {
  moveTo(x, y);
  fake(XCB_BUTTON_PRESS, button, 0, 0);
  fake(XCB_BUTTON_RELEASE, button, 0, 0);
}

void MousePresser::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
  const XReply<xcb_generic_error_t> error(xcb_request_check(
      connection_->get(),
      xcb_test_fake_input_checked(connection_->get(), type, detail, XCB_CURRENT_TIME,
                                  connection_->root(), static_cast<std::int16_t>(x),
                                  static_cast<std::int16_t>(y), 0)));
  if (error || connection_->isDead()) throw std::runtime_error("the display took no mouse event");
}

}  // namespace talmo::test
