#pragma once

#include <functional>
#include <QAbstractButton>
#include <QSize>
#include <QString>

#include "platform/linux/interface/view/Part.h"
#include "platform/linux/interface/view/PartList.h"
#include "platform/Menu.h"

class QHBoxLayout;

namespace talmo {

/// A button of any role, a row of a list included. It never takes the keyboard's focus: the keys
/// belong to the window.
class ButtonPart : public QAbstractButton, public Part {
 public:
  ButtonPart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  bool isHighlighted() const { return isHighlighted_; }
  bool isOn() const { return isOn_; }
  bool hasMenu() const { return static_cast<bool>(menu_); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void press();
  /// Looks as pressed as it is.
  void dim();

  QHBoxLayout& layout_;
  PartList children_;
  std::function<void()> action_;
  std::function<Menu()> menu_;
  bool isOn_ = false;
  bool isHighlighted_ = false;
};

}  // namespace talmo
