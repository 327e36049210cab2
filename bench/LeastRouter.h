#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include <systemd/sd-bus.h>
#include <xcb/xcb.h>

namespace talmo::test {

/// The least that could do Talmo's work: grabs one key and sends one message for each press, to the
/// player that calls itself "floor". On a thread of its own.
class LeastRouter {
 public:
  LeastRouter(const std::string& display, std::uint8_t keycode)
      : connection_(xcb_connect(display.c_str(), nullptr)) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_grab_key(connection_, 0, root, XCB_MOD_MASK_ANY, keycode, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    // An answer to anything later means that the grab has been made.
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    thread_ = std::thread([this] { serve(); });
  }

  ~LeastRouter() {
    xcb_client_message_event_t stop{};
    stop.response_type = XCB_CLIENT_MESSAGE;
    stop.format = 32;
    stop.window = window_;
    xcb_send_event(connection_, 0, window_, 0, reinterpret_cast<const char*>(&stop));
    xcb_flush(connection_);
    thread_.join();
    xcb_disconnect(connection_);
  }

  LeastRouter(const LeastRouter&) = delete;
  LeastRouter& operator=(const LeastRouter&) = delete;

 private:
  void serve() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) return;
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection_)) {
      const unsigned type = event->response_type & 0x7FU;
      std::free(event);
      if (type == XCB_CLIENT_MESSAGE) break;
      if (type != XCB_KEY_PRESS) continue;
      sd_bus_call_method_async(bus, nullptr, "org.mpris.MediaPlayer2.floor",
                               "/org/mpris/MediaPlayer2", "org.mpris.MediaPlayer2.Player", "Next",
                               nullptr, nullptr, "");
      sd_bus_flush(bus);
      while (sd_bus_process(bus, nullptr) > 0) {
      }
    }
    sd_bus_flush_close_unref(bus);
  }

  static xcb_window_t makeWindow(xcb_connection_t* connection) {
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, 0, window,
                      xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
  }

  xcb_connection_t* connection_;
  const xcb_window_t window_ = makeWindow(connection_);
  std::thread thread_;
};

}  // namespace talmo::test
