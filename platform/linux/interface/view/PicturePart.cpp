#include "platform/linux/interface/view/PicturePart.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {

PicturePart::PicturePart(const View& view, const Look& look, QWidget* parent)
    : QWidget(parent), Part(view, look) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PicturePart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  if (image_ == view.image) return;
  image_ = view.image;
  scaled_ = QImage();
  update();
}

QSize PicturePart::sizeHint() const {
  return QSize(1, 1) * (role() == ViewRole::artwork ? Metrics::artwork : Metrics::icon);
}

void PicturePart::paintEvent(QPaintEvent*) {
  if (!image_) return;
  QPainter painter(this);
  if (isIcon()) {
    painter.drawImage(0, 0, scaled());
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath shape;
  shape.addRoundedRect(rect(), Metrics::artworkRadius, Metrics::artworkRadius);
  QBrush picture(scaled());
  QTransform toPoints;
  toPoints.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  picture.setTransform(toPoints);
  painter.fillPath(shape, picture);
  // A light cover has an edge on a light card too.
  const qreal width = 1 / devicePixelRatioF();
  const qreal inset = width / 2;
  painter.setPen(QPen(look().palette->cardBorder, width));
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                          Metrics::artworkRadius - inset, Metrics::artworkRadius - inset);
}

bool PicturePart::isIcon() const {
  // An application's icon stands in for an artwork; its corners are its own.
  return role() == ViewRole::icon || image_->pixels->at(3) == 0;
}

const QImage& PicturePart::scaled() {
  const qreal scale = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * scale).toSize();
  if (scaled_.size() == pixels) return scaled_;
  const QImage whole(image_->pixels->data(), image_->width, image_->height,
                     QImage::Format_RGBA8888);
  // A large artwork is first thinned out: smoothing all of it takes longer than a frame.
  const bool isLarge = whole.width() > 8 * pixels.width() && whole.height() > 8 * pixels.height();
  const QImage thinned = isLarge ? whole.scaled(4 * pixels, Qt::KeepAspectRatioByExpanding) : whole;
  const QImage fitted =
      thinned.convertToFormat(QImage::Format_ARGB32_Premultiplied)
          .scaled(pixels, isIcon() ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding,
                  Qt::SmoothTransformation);
  // Its middle, where it is cut or does not fill the place.
  scaled_ = fitted.copy((fitted.width() - pixels.width()) / 2,
                        (fitted.height() - pixels.height()) / 2, pixels.width(), pixels.height());
  scaled_.setDevicePixelRatio(isIcon() ? scale : 1);
  return scaled_;
}

}  // namespace talmo
