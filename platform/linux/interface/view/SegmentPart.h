#pragma once

#include <QSize>
#include <QWidget>

#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// One of the steps of something.
class SegmentPart : public QWidget, public Part {
 public:
  SegmentPart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isOn_ = false;
};

}  // namespace talmo
