#pragma once

#include <QScrollArea>
#include <QSize>

namespace talmo {

/// A list that scrolls when it has less room than it needs, with a slim thumb over its edge. It
/// wants to be as high as the list, up to a limit.
class ListArea : public QScrollArea {
 public:
  ListArea(QWidget* list, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace talmo
