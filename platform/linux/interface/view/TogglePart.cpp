#include "platform/linux/interface/view/TogglePart.h"

#include <QPainter>

namespace talmo {
namespace {

constexpr int width = 42;
constexpr int height = 25;
constexpr qreal knobInset = 2.5;
constexpr int slideMilliseconds = 180;

QColor between(const QColor& from, const QColor& to, qreal share) {
  const auto mix = [share](float one, float other) {
    return static_cast<float>(one + (other - one) * share);
  };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                          mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

}  // namespace

TogglePart::TogglePart(const View& view, const Look& look, QWidget* parent)
    : QWidget(parent), Part(view, look), isOn_(view.isOn), position_(view.isOn ? 1 : 0) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  slide_.setDuration(slideMilliseconds);
  slide_.setEasingCurve(QEasingCurve::InOutQuad);
  connect(&slide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    position_ = value.toReal();
    update();
  });
}

void TogglePart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  update();
  if (isOn_ == view.isOn) return;
  isOn_ = view.isOn;
  slide_.stop();
  const qreal goal = isOn_ ? 1 : 0;
  if (isVisible()) {
    slide_.setStartValue(position_);
    slide_.setEndValue(goal);
    slide_.start();
  } else {
    position_ = goal;
  }
}

QSize TogglePart::sizeHint() const {
  return {talmo::width, talmo::height};
}

void TogglePart::paintEvent(QPaintEvent*) {
  const Palette& palette = *look().palette;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(between(palette.toggleOff, palette.toggleOn, position_));
  const QRectF track(rect());
  painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
  const qreal side = track.height() - 2 * knobInset;
  const qreal place = isRightToLeft() ? 1 - position_ : position_;
  const qreal travel = track.width() - side - 2 * knobInset;
  painter.setBrush(palette.toggleKnob);
  painter.drawEllipse(QRectF(knobInset + place * travel, knobInset, side, side));
}

}  // namespace talmo
