#include "platform/linux/interface/StatusIcon.h"

#include <array>
#include <optional>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QSvgRenderer>
#include <string>

namespace talmo {
namespace {

// From the smallest tray's to one of twice the usual scale.
constexpr std::array sizes{16, 22, 24, 32, 44, 48, 64};

QPixmap draw(QSvgRenderer& vector, int size, const std::optional<QColor>& tint, double alpha) {
  QPixmap picture(size, size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setOpacity(alpha);
  vector.render(&painter, QRectF(0, 0, size, size));
  if (tint) {
    painter.setOpacity(1);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), *tint);
  }
  return picture;
}

}  // namespace

QIcon statusIcon(const Bundle& bundle, const StatusImage& image, const QColor& foreground,
                 double alpha) {
  const bool isSymbol = image.kind == StatusImage::Kind::symbol;
  const std::optional<std::string> path =
      bundle.resourcePath((isSymbol ? "symbols/" : "images/") + image.name, "svg");
  QSvgRenderer vector;
  if (path) vector.load(QString::fromStdString(*path));
  vector.setAspectRatioMode(Qt::KeepAspectRatio);
  const std::optional<QColor> tint =
      isSymbol || image.isTemplate ? std::optional(foreground) : std::nullopt;
  QIcon icon;
  for (const int size : sizes) icon.addPixmap(draw(vector, size, tint, alpha));
  return icon;
}

}  // namespace talmo
