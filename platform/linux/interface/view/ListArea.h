#pragma once

#include <QScrollArea>
#include <QSize>

#include "platform/linux/interface/view/Look.h"

namespace talmo {

class ScrollThumb;

/// A list that scrolls when it has less room than it needs. It wants to be as high as the list, up
/// to a limit. Main thread only.
class ListArea : public QScrollArea {
 public:
  ListArea(QWidget* list, const Look& look, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Qt's parent owns it.
  ScrollThumb& thumb_;
};

}  // namespace talmo
