#pragma once

#include <QWidget>

#include "platform/View.h"

namespace talmo {

/// Shows a view with the toolkit's widgets. Main thread.
class ContentView : public QWidget {
 public:
  void setContent(const View& content);
  QSize sizeHint() const override;
};

}  // namespace talmo
