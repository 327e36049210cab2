#include "platform/linux/interface/PanelWindow.h"

#include <QCloseEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <xcb/xcb.h>

#include "platform/linux/interface/MenuPopup.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/WindowShape.h"

namespace talmo {
namespace {

constexpr int animationMilliseconds = 120;

/// Whether it tells that somebody takes the keyboard, or gives it back, while the focus stays where
/// it is.
bool isOfGrab(const void* message) {
  const auto& event = *static_cast<const xcb_focus_in_event_t*>(message);
  const int type = event.response_type & 0x7F;
  return (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) &&
         (event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB);
}

}  // namespace

// A tool window and no popup, which would take the click on the icon that is to close it.
PanelWindow::PanelWindow(const Vectors& vectors, Appearance& appearance)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::NoDropShadowWindowHint),
      appearance_(appearance),
      content_(new ContentView(vectors, appearance, this)),
      animation_(this, "geometry") {
  setAttribute(Qt::WA_TranslucentBackground);
  setWindowTitle(QStringLiteral("Talmo"));
  content_->setOnSizeChange([this](QSize size) {
    if (!onSizeChange) return;
    onSizeChange(
        {.width = static_cast<double>(size.width()), .height = static_cast<double>(size.height())});
  });
  content_->setOnMenu([](const Menu& menu, QWidget& button) {
    popUp(menu, button.mapToGlobal(button.rect().bottomLeft()));
  });
  animation_.setDuration(animationMilliseconds);
  animation_.setEasingCurve(QEasingCurve::OutCubic);
}

void PanelWindow::open() {
  isBlended_ = hasCompositor();
  updateShape();
  show();
  raise();
  activateWindow();
}

QRect PanelWindow::place() const {
  return animation_.state() == QAbstractAnimation::Running ? animation_.endValue().toRect()
                                                           : geometry();
}

void PanelWindow::setPlace(const QRect& place, bool isAnimated) {
  if (place == this->place()) return;
  animation_.stop();
  if (isAnimated && isVisible()) {
    animation_.setStartValue(geometry());
    animation_.setEndValue(place);
    animation_.start();
  } else {
    setGeometry(place);
  }
}

void PanelWindow::updateShape() {
  if (isBlended_) {
    clearMask();
    return;
  }
  setMask(roundedShape(size()));
}

void PanelWindow::setContent(const View& content) {
  content_->setContent(content);
}

bool PanelWindow::event(QEvent* event) {
  const bool isHandled = QWidget::event(event);
  if (event->type() == QEvent::WindowDeactivate && isVisible() && onResignKey) onResignKey();
  return isHandled;
}

bool PanelWindow::nativeEvent(const QByteArray& type, void* message, qintptr* result) {
  return (type == "xcb_generic_event_t" && isOfGrab(message)) ||
         QWidget::nativeEvent(type, message, result);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  // The window manager's wish; whoever hears of it hides the window.
  event->ignore();
  if (onCancel) onCancel();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    if (onCancel) onCancel();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void PanelWindow::paintEvent(QPaintEvent*) {
  // The content's ground would let nothing but black through.
  if (!isBlended_) QPainter(this).fillRect(rect(), opaqueGround(appearance_));
}

void PanelWindow::resizeEvent(QResizeEvent*) {
  content_->setGeometry(rect());
  updateShape();
}

}  // namespace talmo
