#pragma once

#include <functional>
#include <optional>
#include <QPropertyAnimation>
#include <QWidget>

#include "platform/Size.h"

namespace talmo {

class ContentView;

/// The window of a panel: frameless, above the others, in no list of windows, and with round
/// corners, which a compositor blends and which are cut off where there is none.
class PanelWindow : public QWidget {
 public:
  PanelWindow();

  ContentView& content() { return *content_; }

  /// Shows it in front and asks for the keys.
  void open();

  /// Where it is, or is on its way to.
  QRect place() const;
  /// Goes there, slowly when it is seen and `isAnimated`.
  void setPlace(const QRect& place, bool isAnimated);

  /// Cuts off what is outside the corners, unless a compositor blends it.
  void updateShape();

  /// Has the size callback called when the content's ideal size is another than before.
  void noticeIdealSize();

  std::function<void(Size)> onSizeChange;
  std::function<void()> onCancel;
  std::function<void()> onResignKey;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  ContentView* const content_;
  QPropertyAnimation animation_;
  std::optional<QSize> idealSize_;
  // Decided at each opening.
  bool isBlended_ = false;
};

}  // namespace talmo
