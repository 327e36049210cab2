#include "platform/linux/interface/LinuxOwnWindows.h"

#include <QCoreApplication>
#include <QEvent>

#include "platform/linux/interface/LinuxOwnWindow.h"

namespace talmo {

LinuxOwnWindows::~LinuxOwnWindows() {
  // Windows that were let go of do not outlive what they are drawn with.
  if (appearance_) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::unique_ptr<Window> LinuxOwnWindows::makeWindow(const WindowParameters& parameters) {
  if (!appearance_) appearance_.emplace();
  return std::make_unique<LinuxOwnWindow>(parameters, vectors_, *appearance_);
}

}  // namespace talmo
