#include "platform/linux/interface/view/SectionPart.h"

#include <algorithm>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <span>

#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/interface/view/ListArea.h"
#include "platform/linux/interface/view/Metrics.h"

namespace talmo {

SectionPart::SectionPart(const View& view, const Look& look, QWidget* parent)
    : QWidget(parent),
      Part(view, look),
      layout_(*new QVBoxLayout(this)),
      list_(*new QWidget),
      area_(*new ListArea(&list_, look, this)),
      headingLayout_(*new QVBoxLayout),
      listLayout_(*new QVBoxLayout(&list_)),
      headings_(headingLayout_, *this, view.role, look),
      rows_(listLayout_, list_, view.role, look) {
  layout_.setContentsMargins(0, 0, 0, 0);
  layout_.setSpacing(Metrics::small);
  layout_.addLayout(&headingLayout_);
  layout_.addWidget(&area_);
  headingLayout_.setContentsMargins(Metrics::step, Metrics::small, Metrics::step, 0);
  listLayout_.setContentsMargins(0, 0, 0, 0);
  connect(area_.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void SectionPart::setView(const View& view) {
  const auto firstRow = std::ranges::find_if(
      view.children, [](const View& child) { return child.role != ViewRole::header; });
  const bool isHeaded = firstRow != view.children.begin();
  setAccessibleName(QString::fromStdString(view.accessibilityLabel.empty() && isHeaded
                                               ? view.children.front().text
                                               : view.accessibilityLabel));
  headings_.set({view.children.begin(), firstRow});
  rows_.set({firstRow, view.children.end()});
  area_.updateGeometry();
  ButtonPart* row = highlighted();
  if (row != revealed_ && row != nullptr) reveal(*row);
  revealed_ = row;
}

void SectionPart::paintEvent(QPaintEvent*) {
  // A line above the list while rows go on there.
  if (area_.verticalScrollBar()->value() == 0) return;
  QPainter painter(this);
  const qreal width = 1 / devicePixelRatioF();
  painter.fillRect(QRectF(0, area_.y() - width, area_.width(), width), look().palette->hairline);
}

void SectionPart::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (revealed_ != nullptr) reveal(*revealed_);
}

void SectionPart::reveal(ButtonPart& row) {
  // The rows' places are those of before until the layout has been worked out.
  layout_.activate();
  listLayout_.activate();
  area_.ensureWidgetVisible(&row, 0, Metrics::step);
}

ButtonPart* SectionPart::highlighted() const {
  for (Part* part : rows_.parts()) {
    auto* row = dynamic_cast<ButtonPart*>(part);
    if (row != nullptr && row->isHighlighted()) return row;
  }
  return nullptr;
}

}  // namespace talmo
