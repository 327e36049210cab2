#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QSize>
#include <QWidget>

#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// A few bars that dance while something sounds. It costs a timer only while it dances and is seen.
class EqualizerPart : public QWidget, public Part {
 public:
  EqualizerPart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  bool isMoving() const { return frames_.isActive(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void moveOrRest();

  bool isOn_ = false;
  QBasicTimer frames_;
  QElapsedTimer motion_;
};

}  // namespace talmo
