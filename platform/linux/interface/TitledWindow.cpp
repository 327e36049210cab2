#include "platform/linux/interface/TitledWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QString>
#include <QWindow>

#include "platform/linux/interface/CloseButton.h"
#include "platform/linux/interface/MenuPopup.h"
#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/WindowShape.h"

namespace talmo {
namespace {

/// From the window's upper and right edges.
constexpr int closeButtonInset = 10;

}  // namespace

TitledWindow::TitledWindow(const WindowParameters& parameters, const Vectors& vectors,
                           Appearance& appearance)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      appearance_(appearance),
      isMovable_(parameters.isMovableByBackground),
      content_(new ContentView(vectors, appearance, this)),
      closeButton_(new CloseButton(appearance, this)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setWindowTitle(QString::fromStdString(parameters.title));
  setFixedSize(qRound(parameters.contentSize.width), qRound(parameters.contentSize.height));
  content_->setGeometry(rect());
  content_->setOnMenu([](const Menu& menu, QWidget& button) {
    popUp(menu, button.mapToGlobal(button.rect().bottomLeft()));
  });
  closeButton_->setVisible((parameters.styleMask & WindowParameters::closable) != 0);
  closeButton_->move(width() - closeButton_->width() - closeButtonInset, closeButtonInset);
  connect(closeButton_, &QAbstractButton::clicked, this, &QWidget::close);
}

void TitledWindow::setContent(const View& content) {
  content_->setContent(content);
  closeButton_->raise();
}

void TitledWindow::center() {
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  QRect place = rect();
  place.moveCenter(screen->availableGeometry().center());
  move(place.topLeft());
}

void TitledWindow::open() {
  isBlended_ = hasCompositor();
  if (isBlended_) {
    clearMask();
  } else {
    setMask(roundedShape(size()));
  }
  show();
  raise();
  activateWindow();
}

void TitledWindow::closeEvent(QCloseEvent* event) {
  // A copy, as the callback may let go of the window.
  const std::function<void()> willClose = onWillClose;
  if (isVisible() && willClose) willClose();
  event->accept();
}

void TitledWindow::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn || event->isAutoRepeat()) return QWidget::keyPressEvent(event);
  for (QAbstractButton* const button : content_->findChildren<QAbstractButton*>()) {
    const auto* const part = dynamic_cast<ButtonPart*>(button);
    if (part == nullptr || part->role() != ViewRole::primaryButton || button->isHidden()) continue;
    button->click();
    return;
  }
}

void TitledWindow::mousePressEvent(QMouseEvent* event) {
  // What can be pressed has taken its presses.
  if (isMovable_ && event->button() == Qt::LeftButton) windowHandle()->startSystemMove();
}

void TitledWindow::paintEvent(QPaintEvent*) {
  // The content's ground would let nothing but black through.
  if (!isBlended_) QPainter(this).fillRect(rect(), opaqueGround(appearance_));
}

}  // namespace talmo
