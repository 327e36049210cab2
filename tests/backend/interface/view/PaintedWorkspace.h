#pragma once

#include <optional>
#include <QColor>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <string>

#include "platform/simulated/SimulatedWorkspace.h"
#include "tests/backend/interface/view/Pixels.h"

namespace talmo::test {

/// A workspace whose applications have icons: a rounded square in a colour of the application's
/// own.
class PaintedWorkspace : public SimulatedWorkspace {
 public:
  using SimulatedWorkspace::SimulatedWorkspace;

  std::optional<Image> icon(const std::string& url, int pixels) const override {
    int sum = 0;
    for (const char letter : url) sum += letter;
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = QColor::fromHsv(sum * 47 % 360, 170, 225);
    QLinearGradient gradient(0, 0, 0, pixels);
    gradient.setColorAt(0, colour.lighter(115));
    gradient.setColorAt(1, colour.darker(115));
    const double margin = pixels / 16.0;
    const QRectF square(margin, margin, pixels - 2 * margin, pixels - 2 * margin);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(square, pixels / 4.5, pixels / 4.5);
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawEllipse(square.center(), pixels / 5.5, pixels / 5.5);
    painter.end();
    return imageOf(image);
  }
};

}  // namespace talmo::test
