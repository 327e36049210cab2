#include "platform/linux/interface/view/SegmentPart.h"

#include <QPainter>

namespace talmo {
namespace {

constexpr int length = 36;
constexpr int thickness = 4;

}  // namespace

SegmentPart::SegmentPart(const View& view, const Look& look, QWidget* parent)
    : QWidget(parent), Part(view, look) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SegmentPart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  isOn_ = view.isOn;
  update();
}

QSize SegmentPart::sizeHint() const {
  return {length, thickness};
}

void SegmentPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(isOn_ ? look().palette->accent : look().palette->segment);
  painter.drawRoundedRect(rect(), thickness / 2.0, thickness / 2.0);
}

}  // namespace talmo
