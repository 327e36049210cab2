#include "platform/linux/interface/PanelWindow.h"

#include <memory>
#include <QCloseEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <string>

#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {
namespace {

// Of the content's ground.
constexpr int cornerRadius = 14;

constexpr int animationMilliseconds = 120;

/// Whether somebody blends translucent windows (freedesktop.org's window manager hints).
bool hasCompositor() {
  const std::unique_ptr<XConnection> connection = XConnection::open();
  return connection &&
         connection->selectionOwner("_NET_WM_CM_S" + std::to_string(connection->screen())) !=
             XCB_WINDOW_NONE;
}

}  // namespace

// A tool window and no popup, which would take the click on the icon that is to close it.
PanelWindow::PanelWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::NoDropShadowWindowHint),
      content_(new ContentView),
      animation_(this, "geometry") {
  setAttribute(Qt::WA_TranslucentBackground);
  setWindowTitle(QStringLiteral("Talmo"));
  content_->setParent(this);
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
  QPainterPath ground;
  ground.addRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);
  setMask(QRegion(ground.toFillPolygon().toPolygon()));
}

void PanelWindow::noticeIdealSize() {
  const QSize ideal = content_->sizeHint();
  if (ideal == idealSize_) return;
  idealSize_ = ideal;
  if (onSizeChange) {
    onSizeChange({.width = static_cast<double>(ideal.width()),
                  .height = static_cast<double>(ideal.height())});
  }
}

bool PanelWindow::event(QEvent* event) {
  const bool isHandled = QWidget::event(event);
  if (event->type() == QEvent::WindowDeactivate && isVisible() && onResignKey) onResignKey();
  // The content has another size now, as when the desktop's font changes.
  if (event->type() == QEvent::LayoutRequest) noticeIdealSize();
  return isHandled;
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
  // The content's ground lets something through, which without a compositor is nothing.
  if (!isBlended_) QPainter(this).fillRect(rect(), palette().window());
}

void PanelWindow::resizeEvent(QResizeEvent*) {
  content_->setGeometry(rect());
  updateShape();
}

}  // namespace talmo
