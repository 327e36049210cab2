#include "platform/linux/interface/LinuxStatusButton.h"

#include <algorithm>
#include <QApplication>
#include <QScreen>
#include <QWidget>

#include "platform/linux/interface/ScreenCoordinates.h"
#include "platform/linux/interface/TrayWindow.h"

namespace talmo {
namespace {

/// Stands for an icon that another program shows for us; no window of X has this number.
constexpr WindowIdentifier shownByAnother = 1;

const QScreen* screenOf(const std::optional<QRect>& area) {
  const QScreen* screen = area ? QGuiApplication::screenAt(area->center()) : nullptr;
  return screen != nullptr ? screen : QGuiApplication::primaryScreen();
}

}  // namespace

WindowIdentifier LinuxStatusButton::window() const {
  if (icon_ == nullptr) return 0;
  const QWidget* const window = trayWindow();
  return window != nullptr ? window->winId() : shownByAnother;
}

std::optional<Rect> LinuxStatusButton::windowFrame() const {
  const std::optional<QRect> place = area();
  if (!place) return std::nullopt;
  return fromToolkit(*place);
}

Rect LinuxStatusButton::visibleFrame() const {
  const QScreen* const screen = screenOf(area());
  return screen != nullptr ? fromToolkit(screen->availableGeometry()) : Rect{};
}

std::optional<QRect> LinuxStatusButton::area() const {
  if (icon_ == nullptr) return std::nullopt;
  if (const QRect known = icon_->geometry(); !known.isEmpty()) return known;
  if (!clicked_) return std::nullopt;
  // Down to the lower edge of the bar that it is in, as far as that is known.
  const QScreen* const screen = screenOf(QRect(*clicked_, QSize(1, 1)));
  const int lowerEdge = screen != nullptr ? screen->availableGeometry().top() : 0;
  return QRect(*clicked_, QSize(1, std::max(1, lowerEdge - clicked_->y())));
}

}  // namespace talmo
