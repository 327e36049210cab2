#pragma once

#include <QScrollBar>
#include <QWidget>

#include "platform/linux/interface/view/Look.h"

namespace talmo {

/// A slim thumb over the edge of a list that scrolls, where a bar would take room from it. It can
/// be dragged; it hides while there is nothing to scroll. Main thread only.
class ScrollThumb : public QWidget {
 public:
  /// Lies over `parent` and moves with its bar, which outlives it.
  ScrollThumb(QScrollBar& bar, const Look& look, QWidget* parent);

  /// Takes its place along the parent's edge.
  void place();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  /// How far the list can scroll, and how far the thumb can then move.
  int range() const { return bar_.maximum() - bar_.minimum(); }
  int track() const { return parentWidget()->height() - height(); }

  QScrollBar& bar_;
  const Look& look_;
  // Where a drag began: of the mouse on the screen, and of the bar.
  qreal grabbedAt_ = 0;
  int grabbedValue_ = 0;
};

}  // namespace talmo
