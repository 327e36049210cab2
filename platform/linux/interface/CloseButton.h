#pragma once

#include <QAbstractButton>
#include <QSize>

namespace talmo {

class Appearance;

/// The button that closes a window whose title bar is not shown.
class CloseButton : public QAbstractButton {
 public:
  /// `appearance` lives longer.
  CloseButton(const Appearance& appearance, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Appearance& appearance_;
};

}  // namespace talmo
