#include "platform/linux/interface/view/ListArea.h"

#include <algorithm>
#include <QLayout>
#include <QScrollBar>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {

ListArea::ListArea(QWidget* list, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  viewport()->setAutoFillBackground(false);
  setWidget(list);
  list->setAutoFillBackground(false);
}

QSize ListArea::sizeHint() const {
  const QSize list = widget()->sizeHint();
  return {list.width(), std::min(list.height(), Metrics::longestList)};
}

QSize ListArea::minimumSizeHint() const {
  return {0, std::min(sizeHint().height(), Metrics::rowHeight)};
}

}  // namespace talmo
