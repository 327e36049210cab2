#include "platform/linux/interface/StatusIcon.h"

#include <array>
#include <QPainter>
#include <QPixmap>

namespace talmo {
namespace {

// From the smallest tray's to one of twice the usual scale.
constexpr std::array sizes{16, 22, 24, 32, 44, 48, 64};

QPixmap draw(const Vectors& vectors, const StatusImage& image, int size, const QColor& foreground) {
  const QSize square(size, size);
  if (image.kind == StatusImage::Kind::symbol) {
    return vectors.symbol(image.name, square, 1, foreground);
  }
  return vectors.image(image.name, square, 1, image.isTemplate ? foreground : QColor());
}

}  // namespace

QIcon statusIcon(const Vectors& vectors, const StatusImage& image, const QColor& foreground,
                 double alpha) {
  QIcon icon;
  for (const int size : sizes) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(alpha);
    painter.drawPixmap(0, 0, draw(vectors, image, size, foreground));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace talmo
