#include "platform/linux/interface/CloseButton.h"

#include <QPainter>
#include <QPen>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/Palette.h"

namespace talmo {
namespace {

constexpr int side = 24;
constexpr qreal inset = 8;
constexpr qreal lineWidth = 1.5;

}  // namespace

CloseButton::CloseButton(const Appearance& appearance, QWidget* parent)
    : QAbstractButton(parent), appearance_(appearance) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setAccessibleName(QStringLiteral("Close"));
  resize(sizeHint());
  connect(&appearance, &Appearance::changed, this, qOverload<>(&QWidget::update));
}

QSize CloseButton::sizeHint() const {
  return {side, side};
}

void CloseButton::paintEvent(QPaintEvent*) {
  const Palette& palette = appearance_.isDark() ? Palette::dark() : Palette::light();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (underMouse() || isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? palette.plainHover : palette.plain);
    painter.drawEllipse(rect());
  }
  painter.setPen(QPen(palette.secondaryText, lineWidth, Qt::SolidLine, Qt::RoundCap));
  const QRectF cross = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace talmo
