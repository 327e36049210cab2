#include "platform/linux/interface/view/ListArea.h"

#include <algorithm>
#include <QLayout>
#include <QScrollBar>

#include "platform/linux/interface/view/Metrics.h"
#include "platform/linux/interface/view/ScrollThumb.h"

namespace talmo {

ListArea::ListArea(QWidget* list, const Look& look, QWidget* parent)
    : QScrollArea(parent), thumb_(*new ScrollThumb(*verticalScrollBar(), look, this)) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setWidget(list);
  // The window's ground shows through.
  viewport()->setAutoFillBackground(false);
  list->setAutoFillBackground(false);
  thumb_.raise();
  // Rows end where the thumb begins.
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, list, [list](int low, int high) {
    list->layout()->setContentsMargins(0, 0, high > low ? Metrics::step : 0, 0);
  });
}

QSize ListArea::sizeHint() const {
  const QSize list = widget()->sizeHint();
  return {list.width(), std::min(list.height(), Metrics::longestList)};
}

QSize ListArea::minimumSizeHint() const {
  return {0, std::min(sizeHint().height(), Metrics::rowHeight)};
}

void ListArea::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  thumb_.place();
}

}  // namespace talmo
