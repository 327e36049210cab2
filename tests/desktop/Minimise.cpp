#include "tests/desktop/Minimise.h"

#include <stdexcept>
#include <stdlib.h>

#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

/// The state of an iconified window (ICCCM 4.1.3.1, IconicState).
constexpr std::uint32_t iconic = 3;

bool isMinimised(XConnection& connection, xcb_window_t window) {
  const xcb_atom_t state = connection.atom("WM_STATE");
  xcb_get_property_reply_t* const reply = xcb_get_property_reply(
      connection.get(), xcb_get_property(connection.get(), 0, window, state, state, 0, 1), nullptr);
  const bool minimised =
      reply != nullptr && xcb_get_property_value_length(reply) >= 4 &&
      *static_cast<const std::uint32_t*>(xcb_get_property_value(reply)) == iconic;
  ::free(reply);
  return minimised;
}

}  // namespace

void minimiseWindowOf(pid_t pid, const std::string& display) {
  const std::unique_ptr<XConnection> connection = XConnection::open(display);
  if (!connection) throw std::runtime_error("no display " + display);
  xcb_window_t found = XCB_WINDOW_NONE;
  waitUntil([&] {
    for (const xcb_window_t window : connection->windows(connection->root(), "_NET_CLIENT_LIST")) {
      const std::vector<std::uint32_t> owner = connection->cardinals(window, "_NET_WM_PID");
      if (owner.size() == 1 && owner[0] == static_cast<std::uint32_t>(pid)) found = window;
    }
    return found != XCB_WINDOW_NONE;
  });
  if (found == XCB_WINDOW_NONE) throw std::runtime_error("the process has no window");

  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = found;
  message.type = connection->atom("WM_CHANGE_STATE");
  message.data.data32[0] = iconic;
  xcb_send_event(connection->get(), 0, connection->root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(connection->get());
  if (!waitUntil([&] { return isMinimised(*connection, found); })) {
    throw std::runtime_error("the window was not minimised");
  }
}

}  // namespace talmo::test
