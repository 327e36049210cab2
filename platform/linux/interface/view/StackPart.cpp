#include "platform/linux/interface/view/StackPart.h"

#include <algorithm>
#include <QBoxLayout>
#include <QMargins>
#include <QPainter>

#include "platform/linux/interface/view/Grounds.h"
#include "platform/linux/interface/view/Metrics.h"
#include "platform/linux/interface/view/Tint.h"

namespace talmo {
namespace {

QMargins marginsOf(ViewRole role, ViewRole container) {
  switch (role) {
    case ViewRole::group:
      // In a list it stands where the rows' content does.
      if (container != ViewRole::section) return {};
      return {Metrics::step, Metrics::small, Metrics::step, Metrics::step};
    case ViewRole::glass:
      return {Metrics::step, Metrics::step, Metrics::step, Metrics::step};
    case ViewRole::material:
      return {Metrics::margin, Metrics::margin, Metrics::margin, Metrics::roomy};
    case ViewRole::card:
    case ViewRole::warning:
    case ViewRole::offer:
      return {Metrics::wide, Metrics::wide, Metrics::wide, Metrics::wide};
    case ViewRole::footer:
      return {Metrics::step, Metrics::step, Metrics::small, 0};
    case ViewRole::chip:
      return {Metrics::step, Metrics::tight, Metrics::step, Metrics::tight};
    default:
      return {};
  }
}

int spacingOf(ViewRole role) {
  switch (role) {
    case ViewRole::card:
      return Metrics::wide;
    case ViewRole::chip:
    case ViewRole::segments:
      return Metrics::small;
    case ViewRole::headline:
      return Metrics::wide;
    default:
      return Metrics::step;
  }
}

/// The least between two parts of a vertical stack that are more than lines of one text.
int gapOf(ViewRole role, ViewRole container) {
  switch (role) {
    case ViewRole::material:
    case ViewRole::step:
      return Metrics::roomy;
    default:
      return container == ViewRole::step ? Metrics::wide : Metrics::step;
  }
}

}  // namespace

StackPart::StackPart(const View& view, ViewRole container, const Look& look, QWidget* parent)
    : QWidget(parent),
      Part(view, look),
      layout_(*new QBoxLayout(
          view.kind == ViewKind::vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight,
          this)),
      children_(layout_, *this, view.role == ViewRole::group ? container : view.role, look,
                gapOf(view.role, container)) {
  layout_.setContentsMargins(marginsOf(view.role, container));
  layout_.setSpacing(spacingOf(view.role));
}

void StackPart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  children_.set(view.children);
  if (view.role == ViewRole::card) tint(view);
  update();
}

void StackPart::tint(const View& view) {
  const auto artwork = std::ranges::find_if(
      view.children, [](const View& child) { return child.image.has_value(); });
  const std::optional<Image> picture =
      artwork == view.children.end() ? std::nullopt : artwork->image;
  if (picture == picture_) return;
  picture_ = picture;
  tint_ = picture_ ? tintOf(*picture_) : QColor();
}

void StackPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintGround(painter, rect(), role(), *look().palette);
  if (tint_.isValid()) paintTint(painter, rect(), tint_);
}

}  // namespace talmo
