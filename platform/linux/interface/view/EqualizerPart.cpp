#include "platform/linux/interface/view/EqualizerPart.h"

#include <array>
#include <cmath>
#include <numbers>
#include <QPainter>

namespace talmo {
namespace {

/// One bar: how long it takes up and down again, in milliseconds, and where it begins.
struct Bar {
  double duration;
  double phase;
};

// No two are a simple multiple of each other, so that they never fall into step.
constexpr std::array bars{Bar{820, 0.0}, Bar{610, 0.35}, Bar{970, 0.7}, Bar{710, 0.15}};

constexpr int high = 14;
constexpr int barWidth = 3;
constexpr int gap = 1;
constexpr double low = 3;
constexpr int frame = 33;

double heightOf(const Bar& bar, double milliseconds) {
  const double turns = milliseconds / bar.duration + bar.phase;
  const double wave = (1 - std::cos(2 * std::numbers::pi * turns)) / 2;
  return low + (high - low) * wave;
}

}  // namespace

EqualizerPart::EqualizerPart(const View& view, const Look& look, QWidget* parent)
    : QWidget(parent), Part(view, look) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void EqualizerPart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  isOn_ = view.isOn;
  moveOrRest();
  update();
}

QSize EqualizerPart::sizeHint() const {
  constexpr int count = static_cast<int>(bars.size());
  return {count * barWidth + (count - 1) * gap, high};
}

void EqualizerPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look().palette->accent);
  const auto now = isMoving() ? static_cast<double>(motion_.elapsed()) : 0;
  double x = 0;
  for (const Bar& bar : bars) {
    const double tall = isOn_ ? heightOf(bar, now) : low;
    painter.drawRoundedRect(QRectF(x, high - tall, barWidth, tall), barWidth / 2.0, barWidth / 2.0);
    x += barWidth + gap;
  }
}

void EqualizerPart::timerEvent(QTimerEvent*) {
  update();
}

void EqualizerPart::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  moveOrRest();
}

void EqualizerPart::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  moveOrRest();
}

void EqualizerPart::moveOrRest() {
  const bool moves = isOn_ && isVisible();
  if (moves == isMoving()) return;
  if (moves) {
    motion_.start();
    frames_.start(frame, this);
  } else {
    frames_.stop();
  }
}

}  // namespace talmo
