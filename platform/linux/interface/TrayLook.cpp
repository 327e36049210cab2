#include "platform/linux/interface/TrayLook.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QScreen>
#include <string>
#include <vector>

#include "platform/linux/x11/XConnection.h"

namespace talmo {
namespace {

// freedesktop.org's system tray protocol, and the hint of the trays that say how symbols are to
// look: four colours of three 16-bit numbers each, the foreground first.
constexpr const char* traySelection = "_NET_SYSTEM_TRAY_S";
constexpr const char* trayColours = "_NET_SYSTEM_TRAY_COLORS";

std::optional<QColor> namedByTheTray() {
  const std::unique_ptr<XConnection> connection = XConnection::open();
  if (!connection) return std::nullopt;
  const xcb_window_t tray =
      connection->selectionOwner(traySelection + std::to_string(connection->screen()));
  if (tray == XCB_WINDOW_NONE) return std::nullopt;
  const std::vector<std::uint32_t> numbers = connection->cardinals(tray, trayColours);
  if (numbers.size() < 3) return std::nullopt;
  return QColor::fromRgba64(static_cast<std::uint16_t>(numbers[0]),
                            static_cast<std::uint16_t>(numbers[1]),
                            static_cast<std::uint16_t>(numbers[2]));
}

std::optional<QColor> byWhatIsAt(const QRect& icon) {
  QScreen* const screen = icon.isEmpty() ? nullptr : QGuiApplication::screenAt(icon.center());
  if (screen == nullptr) return std::nullopt;
  const QPoint corner = icon.topLeft() - screen->geometry().topLeft();
  const QImage seen = screen->grabWindow(0, corner.x(), corner.y(), 1, 1).toImage();
  if (seen.isNull()) return std::nullopt;
  constexpr int middle = 128;
  return qGray(seen.pixel(0, 0)) < middle ? QColor(Qt::white) : QColor(Qt::black);
}

}  // namespace

QColor trayForeground(const QRect& icon) {
  if (const std::optional<QColor> named = namedByTheTray()) return *named;
  if (const std::optional<QColor> seen = byWhatIsAt(icon)) return *seen;
  return QGuiApplication::palette().color(QPalette::WindowText);
}

}  // namespace talmo
