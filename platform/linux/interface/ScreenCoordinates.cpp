#include "platform/linux/interface/ScreenCoordinates.h"

#include <cmath>
#include <QGuiApplication>
#include <QScreen>

namespace talmo {

Rect fromToolkit(const QRect& area) {
  const QScreen* const main = QGuiApplication::primaryScreen();
  if (main == nullptr) return {};
  const QRect screen = main->geometry();
  return {.x = static_cast<double>(area.x() - screen.x()),
          .y = static_cast<double>(screen.y() + screen.height() - area.y() - area.height()),
          .width = static_cast<double>(area.width()),
          .height = static_cast<double>(area.height())};
}

QRect toToolkit(const Rect& area) {
  const QScreen* const main = QGuiApplication::primaryScreen();
  if (main == nullptr) return {};
  const QRect screen = main->geometry();
  // The upper edge decides: it is the one that hangs from something.
  const auto top = static_cast<int>(std::lround(screen.y() + screen.height() - area.maxY()));
  const auto left = static_cast<int>(std::lround(screen.x() + area.x));
  return {left, top, static_cast<int>(std::lround(area.width)),
          static_cast<int>(std::lround(area.height))};
}

}  // namespace talmo
