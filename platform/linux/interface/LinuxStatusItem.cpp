#include "platform/linux/interface/LinuxStatusItem.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QString>
#include <utility>

#include "platform/linux/interface/MenuPopup.h"
#include "platform/linux/interface/StatusIcon.h"
#include "platform/linux/interface/TrayLook.h"
#include "platform/linux/interface/TrayWindow.h"

namespace talmo {

LinuxStatusItem::LinuxStatusItem(const Vectors& vectors, LinuxOwnApplication& application)
    : vectors_(vectors), application_(application) {
  if (qApp != nullptr) {
    icon_ = std::make_unique<QSystemTrayIcon>();
    connect(icon_.get(), &QSystemTrayIcon::activated, this, &LinuxStatusItem::clicked);
    qApp->installEventFilter(this);
  }
  button_ = std::make_shared<LinuxStatusButton>(icon_.get());
}

LinuxStatusItem::~LinuxStatusItem() {
  button_->detach();
}

void LinuxStatusItem::setImage(const StatusImage& image) {
  if (image == image_) return;
  image_ = image;
  draw();
  if (!icon_) return;
  icon_->setToolTip(QString::fromStdString(image.accessibilityDescription));
  icon_->show();
}

void LinuxStatusItem::setAlpha(double alpha) {
  if (alpha == alpha_) return;
  alpha_ = alpha;
  draw();
}

void LinuxStatusItem::setAction(std::uint64_t mask, std::function<void()> action) {
  mask_ = mask;
  action_ = std::move(action);
}

void LinuxStatusItem::setMenu(std::optional<Menu> menu) {
  menu_ = std::move(menu);
}

void LinuxStatusItem::performClick() {
  if (menu_) {
    dropDown();
  } else if (action_) {
    action_();
  }
}

bool LinuxStatusItem::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::ApplicationPaletteChange ||
      (type == QEvent::Paint && isTrayWindow(watched))) {
    // When the event has been dealt with.
    QMetaObject::invokeMethod(this, &LinuxStatusItem::followTray, Qt::QueuedConnection);
  }
  return false;
}

void LinuxStatusItem::followTray() {
  if (icon_ && trayForeground(icon_->geometry()) != foreground_) draw();
}

void LinuxStatusItem::draw() {
  if (!icon_) return;
  foreground_ = trayForeground(icon_->geometry());
  icon_->setIcon(statusIcon(vectors_, image_, foreground_, alpha_));
}

void LinuxStatusItem::clicked(QSystemTrayIcon::ActivationReason reason) {
  using Type = InterfaceEvent::Type;
  const bool isRight = reason == QSystemTrayIcon::Context;
  // The second click of two quick ones is a click too.
  const bool isLeft = reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
  const Type type = isRight ? Type::rightMouseUp : Type::leftMouseDown;
  if ((!isLeft && !isRight) || (mask_ & eventMask(type)) == 0) return;
  // A press that had to close the panel is not to open it again.
  if (isLeft && trayWindow() == nullptr && application_.isStillPressElsewhere()) return;
  button_->wasClicked(QCursor::pos());
  if (menu_) {
    dropDown();
  } else if (action_) {
    // It may be replaced while it runs.
    const std::function<void()> action = action_;
    application_.handle({.type = type, .window = button_->window()}, action);
  }
}

void LinuxStatusItem::dropDown() {
  const std::optional<QRect> area = button_->area();
  const Menu menu = *menu_;
  popUp(menu, area ? area->bottomLeft() : QCursor::pos());
}

}  // namespace talmo
