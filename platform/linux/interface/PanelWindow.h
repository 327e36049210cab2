#pragma once

#include <functional>
#include <optional>
#include <QPropertyAnimation>
#include <QWidget>

#include "platform/Size.h"
#include "platform/View.h"

namespace talmo {

class Appearance;
class ContentView;
class Vectors;

/// The window of a panel: frameless, above the others, in no list of windows, and with round
/// corners, which a compositor blends and which are cut off where there is none.
class PanelWindow : public QWidget {
 public:
  /// Both live longer.
  PanelWindow(const Vectors& vectors, Appearance& appearance);

  /// Shows it in front and asks for the keys.
  void open();

  /// Where it is, or is on its way to.
  QRect place() const;
  /// Goes there, slowly when it is seen and `isAnimated`.
  void setPlace(const QRect& place, bool isAnimated);

  /// Cuts off what is outside the corners, unless a compositor blends it.
  void updateShape();

  /// When the ideal size is another than before, the size callback is called before this returns.
  void setContent(const View& content);

  std::function<void(Size)> onSizeChange;
  std::function<void()> onCancel;
  std::function<void()> onResignKey;

 protected:
  bool event(QEvent* event) override;
  /// Keeps from the toolkit that a media key holds the keyboard while it is down, which it would
  /// soon take for the loss of the focus.
  bool nativeEvent(const QByteArray& type, void* message, qintptr* result) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  const Appearance& appearance_;
  ContentView* const content_;
  QPropertyAnimation animation_;
  // Decided at each opening.
  bool isBlended_ = false;
};

}  // namespace talmo
