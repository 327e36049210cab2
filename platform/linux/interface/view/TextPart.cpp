#include "platform/linux/interface/view/TextPart.h"

#include <cmath>
#include <QApplication>
#include <QBrush>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPalette>

#include "platform/linux/interface/view/ElidedText.h"
#include "platform/linux/interface/view/TextStyle.h"

namespace talmo {
namespace {

// The end of a word that has no room, in points.
constexpr qreal fadeWidth = 24;

QBrush fading(const QColor& colour, qreal width, bool isRightToLeft) {
  QColor clear = colour;
  clear.setAlpha(0);
  QLinearGradient gradient(isRightToLeft ? fadeWidth : width - fadeWidth, 0,
                           isRightToLeft ? 0 : width, 0);
  gradient.setColorAt(0, colour);
  gradient.setColorAt(1, clear);
  return gradient;
}

}  // namespace

TextPart::TextPart(const View& view, ViewRole container, const Look& look, QWidget* parent)
    : QLabel(parent), Part(view, look), container_(container) {
  setTextFormat(Qt::PlainText);
  // Not that of a button that it may be in.
  setForegroundRole(QPalette::WindowText);
  setWordWrap(!isOneLine());
  if (isOneLine()) setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TextPart::setView(const View& view) {
  setFont(textFont(role(), container_, QApplication::font()));
  whole_ = QString::fromStdString(view.text);
  setAccessibleName(
      view.accessibilityLabel.empty() ? whole_ : QString::fromStdString(view.accessibilityLabel));
  // The direction is the text's own; where it stands is the window's, as for all that is beside it.
  setAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute |
               Qt::AlignVCenter);
  if (isOneLine()) {
    whole_ = whole_.simplified();
    fit();
  } else {
    setText(whole_);
    draw(textColour(role(), container_, *look().palette));
  }
}

QSize TextPart::sizeHint() const {
  if (!isOneLine()) return QLabel::sizeHint();
  const QFontMetricsF metrics(font());
  return {static_cast<int>(std::ceil(metrics.horizontalAdvance(whole_))),
          static_cast<int>(std::ceil(metrics.height()))};
}

QSize TextPart::minimumSizeHint() const {
  // A one-line text gives way to what is beside it.
  return isOneLine() ? QSize(0, sizeHint().height()) : QLabel::minimumSizeHint();
}

void TextPart::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (isOneLine()) fit();
}

void TextPart::fit() {
  const ElidedText shown = ElidedText::of(whole_, QFontMetricsF(font()), width());
  setText(shown.text);
  setToolTip(shown == ElidedText{.text = whole_} ? QString() : whole_);
  const QColor colour = textColour(role(), container_, *look().palette);
  draw(shown.fades ? fading(colour, width(), shown.text.isRightToLeft()) : QBrush(colour));
}

void TextPart::draw(const QBrush& brush) {
  QPalette colours = palette();
  colours.setBrush(QPalette::WindowText, brush);
  setPalette(colours);
}

}  // namespace talmo
