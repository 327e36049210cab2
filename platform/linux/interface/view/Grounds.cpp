#include "platform/linux/interface/view/Grounds.h"

#include <QLinearGradient>
#include <QPaintDevice>
#include <QPainter>
#include <QPen>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {
namespace {

/// A pixel of the screen, in points.
qreal hairline(const QPainter& painter) {
  return 1 / painter.device()->devicePixelRatioF();
}

void paintBox(QPainter& painter, const QRectF& place, qreal radius, const QColor& ground,
              const QColor& border) {
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal width = hairline(painter);
  const qreal inset = width / 2;
  painter.setPen(border.isValid() ? QPen(border, width) : QPen(Qt::NoPen));
  painter.setBrush(ground);
  painter.drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), radius - inset,
                          radius - inset);
}

}  // namespace

void paintGlass(QPainter& painter, const QRectF& place, const Palette& palette) {
  paintBox(painter, place, Metrics::glassRadius, palette.glass, palette.glassBorder);
  // Light falls on the upper edge and is gone where the corners end.
  const qreal width = hairline(painter);
  QLinearGradient light(place.topLeft(), place.topLeft() + QPointF(0, 2.0 * Metrics::glassRadius));
  QColor clear = palette.glassLight;
  clear.setAlpha(0);
  light.setColorAt(0, palette.glassLight);
  light.setColorAt(1, clear);
  painter.setPen(QPen(light, width));
  painter.setBrush(Qt::NoBrush);
  const qreal inset = 1.5 * width;
  painter.drawRoundedRect(place.adjusted(inset, inset, -inset, -inset),
                          Metrics::glassRadius - inset, Metrics::glassRadius - inset);
}

void paintGround(QPainter& painter, const QRectF& place, ViewRole role, const Palette& palette) {
  switch (role) {
    case ViewRole::card:
    case ViewRole::offer:
      paintBox(painter, place, Metrics::cardRadius, palette.card, palette.cardBorder);
      break;
    case ViewRole::warning:
      paintBox(painter, place, Metrics::cardRadius, palette.warning, palette.warningBorder);
      break;
    case ViewRole::chip:
      paintBox(painter, place, place.height() / 2, palette.chip, QColor());
      break;
    case ViewRole::footer:
      painter.fillRect(QRectF(place.left(), place.top(), place.width(), hairline(painter)),
                       palette.hairline);
      break;
    default:
      break;
  }
}

void paintTint(QPainter& painter, const QRectF& place, QColor tint) {
  tint.setAlphaF(Palette::tintAlpha);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tint);
  painter.drawRoundedRect(place, Metrics::cardRadius, Metrics::cardRadius);
}

}  // namespace talmo
