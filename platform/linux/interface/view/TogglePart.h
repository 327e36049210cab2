#pragma once

#include <QSize>
#include <QVariantAnimation>
#include <QWidget>

#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// The picture of a switch, whose knob slides to its other end when it changes while it is seen.
class TogglePart : public QWidget, public Part {
 public:
  TogglePart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isOn_;
  QVariantAnimation slide_;
  // Of the knob: 0 at the end that is off, 1 at the other.
  qreal position_;
};

}  // namespace talmo
