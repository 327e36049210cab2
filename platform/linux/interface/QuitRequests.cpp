#include "platform/linux/interface/QuitRequests.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace talmo {

QuitRequests::QuitRequests(std::function<void()> quit) : quit_(std::move(quit)) {
  qApp->installEventFilter(this);
}

bool QuitRequests::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::Quit || receiver != qApp) return false;
  quit_();
  return true;
}

}  // namespace talmo
