#include "platform/linux/interface/view/Vectors.h"

#include <optional>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace talmo {

QPixmap Vectors::symbol(const std::string& name, const QSize& size, qreal scale,
                        const QColor& colour) const {
  return drawn("symbols/" + name, size, scale, colour);
}

QPixmap Vectors::image(const std::string& name, const QSize& size, qreal scale,
                       const QColor& colour) const {
  return drawn("images/" + name, size, scale, colour);
}

QPixmap Vectors::drawn(const std::string& name, const QSize& size, qreal scale,
                       const QColor& colour) const {
  const QSize pixels = (QSizeF(size) * scale).toSize();
  const QString key = QStringLiteral("talmo:%1:%2x%3:%4")
                          .arg(QString::fromStdString(name))
                          .arg(pixels.width())
                          .arg(pixels.height())
                          .arg(colour.isValid() ? colour.name(QColor::HexArgb) : QString());
  QPixmap pixmap;
  if (!QPixmapCache::find(key, &pixmap)) {
    const std::optional<std::string> path = bundle_.resourcePath(name, "svg");
    QSvgRenderer renderer;
    if (pixels.isEmpty() || !path || !renderer.load(QString::fromStdString(*path))) return {};
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
    if (colour.isValid()) {
      painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
      painter.fillRect(image.rect(), colour);
    }
    painter.end();
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(key, pixmap);
  }
  pixmap.setDevicePixelRatio(scale);
  return pixmap;
}

}  // namespace talmo
