#pragma once

#include <functional>
#include <QWidget>

#include "platform/View.h"
#include "platform/WindowParameters.h"

namespace talmo {

class Appearance;
class CloseButton;
class ContentView;
class Vectors;

/// A window in the list of windows, of a fixed size. Its title bar is not shown: it is frameless
/// with round corners, has a button to close it, and is moved by its ground.
class TitledWindow : public QWidget {
 public:
  /// Both live longer.
  TitledWindow(const WindowParameters& parameters, const Vectors& vectors, Appearance& appearance);

  void setContent(const View& content);

  /// Puts it into the middle of the screen's part that is free.
  void center();

  /// Shows it in front and asks for the keys.
  void open();

  /// It was on screen and is being closed.
  std::function<void()> onWillClose;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const Appearance& appearance_;
  const bool isMovable_;
  ContentView* const content_;
  CloseButton* const closeButton_;
  // Decided at each opening.
  bool isBlended_ = true;
};

}  // namespace talmo
