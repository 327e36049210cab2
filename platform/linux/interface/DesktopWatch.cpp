#include "platform/linux/interface/DesktopWatch.h"

#include <QGuiApplication>
#include <QScreen>
#include <unistd.h>
#include <vector>

#include <xcb/xcb.h>

#include "platform/Application.h"
#include "platform/linux/x11/XReply.h"
#include "platform/Workspace.h"

namespace talmo {
namespace {

// freedesktop.org's window manager hints.
constexpr const char* activeWindow = "_NET_ACTIVE_WINDOW";
constexpr const char* currentDesktop = "_NET_CURRENT_DESKTOP";
constexpr const char* processProperty = "_NET_WM_PID";

}  // namespace

DesktopWatch::DesktopWatch(Notifications& workspace, Notifications& program)
    : workspace_(workspace), program_(program) {
  if (qGuiApp == nullptr) return;
  for (QScreen* const screen : QGuiApplication::screens()) watchScreen(screen);
  const auto post = [this] { program_.post(Application::screenParametersDidChange); };
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, post](QScreen* screen) {
    watchScreen(screen);
    post();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, post);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, post);

  connection_ = XConnection::open();
  if (!connection_) return;
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(connection_->get(), connection_->root(), XCB_CW_EVENT_MASK, &events);
  notifier_.emplace(xcb_get_file_descriptor(connection_->get()), QSocketNotifier::Read);
  connect(&*notifier_, &QSocketNotifier::activated, this, &DesktopWatch::drain);
  front_ = front();
  // The answer may have brought events along.
  drain();
}

void DesktopWatch::watchScreen(QScreen* screen) {
  const auto post = [this] { program_.post(Application::screenParametersDidChange); };
  connect(screen, &QScreen::geometryChanged, this, post);
  connect(screen, &QScreen::availableGeometryChanged, this, post);
}

void DesktopWatch::drain() {
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
    if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) continue;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
    if (change.atom == connection_->atom(activeWindow)) {
      const std::optional<std::uint32_t> now = front();
      if (!now || now == front_) continue;
      front_ = now;
      workspace_.post(Workspace::didActivateApplication);
    } else if (change.atom == connection_->atom(currentDesktop)) {
      workspace_.post(Workspace::activeSpaceDidChange);
    }
  }
  if (connection_->isDead()) notifier_->setEnabled(false);
}

std::optional<std::uint32_t> DesktopWatch::front() const {
  const std::vector<xcb_window_t> active = connection_->windows(connection_->root(), activeWindow);
  if (active.empty() || active.front() == XCB_WINDOW_NONE) return std::nullopt;
  const std::vector<std::uint32_t> process =
      connection_->cardinals(active.front(), processProperty);
  if (process.empty()) return 0;
  if (process.front() == static_cast<std::uint32_t>(::getpid())) return std::nullopt;
  return process.front();
}

}  // namespace talmo
