#include "platform/linux/interface/LinuxStatusBar.h"

#include "platform/linux/interface/LinuxStatusItem.h"

namespace talmo {

std::unique_ptr<StatusItem> LinuxStatusBar::makeStatusItem(double) {
  return std::make_unique<LinuxStatusItem>(vectors_, application_);
}

}  // namespace talmo
