#include "tests/support/FocusWindow.h"

#include <array>
#include <stdexcept>

#include <xkbcommon/xkbcommon.h>

#include "platform/linux/input/XkbProtocol.h"
#include "platform/linux/input/XKeymap.h"
#include "platform/linux/x11/XReply.h"
#include "support/MutexLock.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

// Its ground, as 0xRRGGBB; nothing is on it.
constexpr std::uint32_t paper = 0xF4F4F2;

std::string nameOf(xkb_keysym_t keysym) {
  std::array<char, 64> name{};
  return xkb_keysym_get_name(keysym, name.data(), name.size()) > 0 ? name.data() : "";
}

/// Without this a key that repeats looks like one that is let go and pressed again.
void turnOnDetectableRepeat(xcb_connection_t* server) {
  const XReply<xcb_xkb_use_extension_reply_t> extension(
      xcb_xkb_use_extension_reply(server, xcb_xkb_use_extension(server, 1, 0), nullptr));
  const auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
  const XReply<xcb_xkb_per_client_flags_reply_t> flags(xcb_xkb_per_client_flags_reply(
      server, xcb_xkb_per_client_flags(server, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0),
      nullptr));
}

}  // namespace

FocusWindow::FocusWindow(const std::string& display, const Options& options)
    : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " for a window");
  xcb_connection_t* const server = connection_->get();
  turnOnDetectableRepeat(server);
  window_ = xcb_generate_id(server);
  const std::array<std::uint32_t, 2> values{paper, XCB_EVENT_MASK_KEY_PRESS |
                                                       XCB_EVENT_MASK_KEY_RELEASE |
                                                       XCB_EVENT_MASK_STRUCTURE_NOTIFY};
  xcb_create_window(server, XCB_COPY_FROM_PARENT, window_, connection_->root(), 100, 100,
                    options.width, options.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                    XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
  const xcb_atom_t utf8 = connection_->atom("UTF8_STRING");
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_, connection_->atom("_NET_WM_NAME"),
                      utf8, 8, static_cast<std::uint32_t>(options.title.size()),
                      options.title.data());
  if (options.pid != 0) {
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_, connection_->atom("_NET_WM_PID"),
                        XCB_ATOM_CARDINAL, 32, 1, &options.pid);
  }
  if (!options.type.empty()) {
    const xcb_atom_t type = connection_->atom(options.type);
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_,
                        connection_->atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &type);
  }
  if (!options.windowClass.empty()) {
    const std::string classes = options.windowClass + '\0' + options.windowClass + '\0';
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                        8, static_cast<std::uint32_t>(classes.size()), classes.data());
  }
  if (options.transientFor != 0) {
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, window_,
                        connection_->atom("WM_TRANSIENT_FOR"), XCB_ATOM_WINDOW, 32, 1,
                        &options.transientFor);
  }
  quitMessage_ = connection_->atom("TALMO_TEST_QUIT");
  if (options.isMapped) xcb_map_window(server, window_);
  xcb_flush(server);
  thread_ = std::thread([this] { run(); });
  if (options.isMapped && !waitUntil([this] {
        const MutexLock lock(mutex_);
        return isMapped_;
      })) {
    stop();
    throw std::runtime_error("the window did not come up");
  }
}

FocusWindow::~FocusWindow() {
  stop();
}

void FocusWindow::stop() {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window_;
  message.type = quitMessage_;
  xcb_send_event(connection_->get(), 0, window_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(connection_->get());
  thread_.join();
}

void FocusWindow::focus() {
  xcb_connection_t* const server = connection_->get();
  const bool focused = waitUntil([&] {
    xcb_set_input_focus(server, XCB_INPUT_FOCUS_POINTER_ROOT, window_, XCB_CURRENT_TIME);
    const XReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
    return reply && reply->focus == window_;
  });
  if (!focused) throw std::runtime_error("the window did not get the focus");
}

std::vector<RecordedKey> FocusWindow::keys() const {
  const MutexLock lock(mutex_);
  return keys_;
}

std::string FocusWindow::transcript() const {
  std::string text;
  for (const RecordedKey& key : keys()) {
    text += (text.empty() ? "" : " ") + std::string(key.isPress ? "+" : "-") + key.keysym;
  }
  return text;
}

void FocusWindow::clear() {
  const MutexLock lock(mutex_);
  keys_.clear();
}

void FocusWindow::run() {
  XKeymap::watch(*connection_);
  std::unique_ptr<XKeymap> keymap = XKeymap::load(*connection_);
  while (const XReply<xcb_generic_event_t> event{xcb_wait_for_event(connection_->get())}) {
    const auto type = static_cast<std::uint8_t>(event->response_type & 0x7F);
    if (type == XCB_MAP_NOTIFY) {
      const MutexLock lock(mutex_);
      isMapped_ = true;
    } else if (XKeymap::isChange(*connection_, *event)) {
      keymap = XKeymap::load(*connection_);
    } else if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
      const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
      RecordedKey recorded{.keysym = keymap ? nameOf(keymap->keysym(key.detail, key.state)) : "",
                           .isPress = type == XCB_KEY_PRESS,
                           .isSynthetic = (event->response_type & 0x80) != 0,
                           .state = key.state};
      const MutexLock lock(mutex_);
      keys_.push_back(std::move(recorded));
    } else if (type == XCB_CLIENT_MESSAGE) {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      if (message.type == quitMessage_) return;
    }
  }
}

}  // namespace talmo::test
