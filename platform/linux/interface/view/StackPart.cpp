#include "platform/linux/interface/view/StackPart.h"

#include <QBoxLayout>
#include <QMargins>
#include <QPainter>

#include "platform/linux/interface/view/Grounds.h"
#include "platform/linux/interface/view/Metrics.h"

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
      return Metrics::small;
    default:
      return Metrics::step;
  }
}

}  // namespace

StackPart::StackPart(const View& view, ViewRole container, const Look& look, QWidget* parent)
    : QWidget(parent),
      Part(view, look),
      layout_(*new QBoxLayout(
          view.kind == ViewKind::vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight,
          this)),
      children_(layout_, *this, view.role == ViewRole::group ? container : view.role, look) {
  layout_.setContentsMargins(marginsOf(view.role, container));
  layout_.setSpacing(spacingOf(view.role));
}

void StackPart::setView(const View& view) {
  setAccessibleName(QString::fromStdString(view.accessibilityLabel));
  children_.set(view.children);
  update();
}

void StackPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintGround(painter, rect(), role(), *look().palette);
}

}  // namespace talmo
