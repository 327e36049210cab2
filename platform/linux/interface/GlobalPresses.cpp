#include "platform/linux/interface/GlobalPresses.h"

#include <array>
#include <QGuiApplication>
#include <utility>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include "platform/linux/x11/XReply.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("interface");

// From 2.2 on raw events arrive also while another program has grabbed the pointer.
constexpr std::uint16_t wantedMajor = 2;
constexpr std::uint16_t wantedMinor = 2;

struct Selection {
  xcb_input_event_mask_t head;
  std::uint32_t mask;
};

/// The number of the input extension; 0 where there is none of that version.
std::uint8_t findExtension(const XConnection& connection) {
  const xcb_query_extension_reply_t* const extension =
      xcb_get_extension_data(connection.get(), &xcb_input_id);
  if (extension == nullptr || extension->present == 0) return 0;
  const XReply<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
      connection.get(), xcb_input_xi_query_version(connection.get(), wantedMajor, wantedMinor),
      nullptr));
  return version ? extension->major_opcode : std::uint8_t{0};
}

/// Asks for these raw events of all pointers; whether the server agrees.
bool select(const XConnection& connection, std::uint32_t events) {
  const Selection selection{.head = {.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1},
                            .mask = events};
  const XReply<xcb_generic_error_t> error(xcb_request_check(
      connection.get(),
      xcb_input_xi_select_events_checked(connection.get(), connection.root(), 1, &selection.head)));
  return !error;
}

/// Whether a window was made by the toolkit: the server has given it a range of numbers.
bool isOurs(xcb_window_t window) {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return false;
  const xcb_setup_t* const setup = xcb_get_setup(x11->connection());
  return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

/// Whether the pointer is in a window of ours, which may be inside another program's.
bool isPointerAtUs(const XConnection& connection) {
  xcb_window_t window = connection.root();
  while (window != XCB_WINDOW_NONE) {
    if (isOurs(window)) return true;
    const XReply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        connection.get(), xcb_query_pointer(connection.get(), window), nullptr));
    if (!pointer) return false;
    window = pointer->child;
  }
  return false;
}

std::optional<InterfaceEvent::Type> typeOf(std::uint32_t button) {
  switch (button) {
    case XCB_BUTTON_INDEX_1:
      return InterfaceEvent::Type::leftMouseDown;
    case XCB_BUTTON_INDEX_3:
      return InterfaceEvent::Type::rightMouseDown;
    default:
      return std::nullopt;
  }
}

}  // namespace

GlobalPresses::GlobalPresses(std::function<void(InterfaceEvent::Type)> handler)
    : handler_(std::move(handler)), connection_(XConnection::open()) {
  if (!connection_) return;
  extension_ = findExtension(*connection_);
  notifier_.emplace(xcb_get_file_descriptor(connection_->get()), QSocketNotifier::Read);
  notifier_->setEnabled(false);
  QObject::connect(&*notifier_, &QSocketNotifier::activated, [this] { drain(); });
}

void GlobalPresses::start() {
  if (extension_ == 0 || !select(*connection_, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS)) {
    log.notice("the X server does not tell of clicks elsewhere");
    return;
  }
  isStarted_ = true;
  notifier_->setEnabled(true);
}

void GlobalPresses::stop() {
  if (!isStarted_) return;
  isStarted_ = false;
  notifier_->setEnabled(false);
  select(*connection_, 0);
  // What came in the meantime.
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
  }
}

void GlobalPresses::drain() {
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
    if ((event->response_type & 0x7F) != XCB_GE_GENERIC) continue;
    const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(*event);
    if (press.extension != extension_ || press.event_type != XCB_INPUT_RAW_BUTTON_PRESS) continue;
    const std::optional<InterfaceEvent::Type> type = typeOf(press.detail);
    if (!type || isPointerAtUs(*connection_)) continue;
    handler_(*type);
    if (!isStarted_) return;
  }
  if (connection_->isDead()) notifier_->setEnabled(false);
}

}  // namespace talmo
