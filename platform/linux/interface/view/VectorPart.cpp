#include "platform/linux/interface/view/VectorPart.h"

#include <QPainter>
#include <QRect>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {
namespace {

QColor colourOf(ViewRole role, ViewRole container, const Palette& palette) {
  switch (role) {
    case ViewRole::artwork:
    case ViewRole::icon:
      return palette.tileSymbol;
    case ViewRole::warningSymbol:
      return palette.warningSymbol;
    case ViewRole::successSymbol:
      return palette.success;
    case ViewRole::mark:
      return palette.accent;
    default:
      break;
  }
  switch (container) {
    case ViewRole::chip:
      return palette.chipText;
    case ViewRole::linkButton:
      return palette.accent;
    case ViewRole::primaryButton:
    case ViewRole::prominentButton:
      return palette.prominentText;
    default:
      return palette.secondaryText;
  }
}

/// The side of the vector itself, in points.
int sideOf(ViewRole role, ViewRole container) {
  switch (role) {
    case ViewRole::artwork:
      return Metrics::artwork / 2;
    case ViewRole::icon:
      return Metrics::symbol;
    case ViewRole::warningSymbol:
      return 20;
    case ViewRole::successSymbol:
      return container == ViewRole::headline ? 32 : 18;
    default:
      return container == ViewRole::linkButton || container == ViewRole::chip ? 12
                                                                              : Metrics::symbol;
  }
}

}  // namespace

VectorPart::VectorPart(const View& view, ViewRole container, const Look& look, QWidget* parent)
    : QWidget(parent), Part(view, look), container_(container) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void VectorPart::setView(const View& view) {
  name_ = view.text;
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  update();
}

bool VectorPart::isTile() const {
  return kind() == ViewKind::symbol && (role() == ViewRole::artwork || role() == ViewRole::icon);
}

QSize VectorPart::sizeHint() const {
  switch (role()) {
    case ViewRole::artwork:
      return {Metrics::artwork, Metrics::artwork};
    case ViewRole::icon:
      return {Metrics::icon, Metrics::icon};
    default:
      return QSize(1, 1) * sideOf(role(), container_);
  }
}

void VectorPart::paintEvent(QPaintEvent*) {
  const Palette& palette = *look().palette;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (isTile()) {
    const int radius = role() == ViewRole::artwork ? Metrics::artworkRadius : Metrics::rowRadius;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.tile);
    painter.drawRoundedRect(rect(), radius, radius);
  }
  const bool isSymbol = kind() == ViewKind::symbol;
  QRect place(QPoint(), isSymbol ? QSize(1, 1) * sideOf(role(), container_) : size());
  place.moveCenter(rect().center());
  const qreal scale = devicePixelRatioF();
  painter.drawPixmap(place.topLeft(),
                     isSymbol ? look().vectors.symbol(name_, place.size(), scale,
                                                      colourOf(role(), container_, palette))
                              : look().vectors.image(name_, place.size(), scale));
}

}  // namespace talmo
