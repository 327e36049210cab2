#include "platform/linux/interface/view/ScrollThumb.h"

#include <algorithm>
#include <QMouseEvent>
#include <QPainter>

namespace talmo {
namespace {

constexpr int reach = 8;
constexpr int thickness = 4;
constexpr int margin = 1;
constexpr int shortest = 32;

}  // namespace

ScrollThumb::ScrollThumb(QScrollBar& bar, const Look& look, QWidget* parent)
    : QWidget(parent), bar_(bar), look_(look) {
  connect(&bar, &QScrollBar::valueChanged, this, [this] { place(); });
  connect(&bar, &QScrollBar::rangeChanged, this, [this] { place(); });
  place();
}

void ScrollThumb::place() {
  setVisible(range() > 0);
  if (range() <= 0) return;
  const int page = parentWidget()->height();
  const int length = std::max(shortest, page * page / (page + range()));
  resize(reach, length);
  move(parentWidget()->width() - reach, track() * (bar_.value() - bar_.minimum()) / range());
}

void ScrollThumb::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look_.palette->scrollThumb);
  const QRectF thumb(width() - margin - thickness, margin, thickness, height() - 2 * margin);
  painter.drawRoundedRect(thumb, thickness / 2.0, thickness / 2.0);
}

void ScrollThumb::mousePressEvent(QMouseEvent* event) {
  grabbedAt_ = event->globalPosition().y();
  grabbedValue_ = bar_.value();
}

void ScrollThumb::mouseMoveEvent(QMouseEvent* event) {
  if (track() <= 0) return;
  const qreal moved = event->globalPosition().y() - grabbedAt_;
  bar_.setValue(grabbedValue_ + qRound(moved * range() / track()));
}

}  // namespace talmo
