#include "platform/linux/interface/LinuxPanels.h"

#include "platform/linux/interface/LinuxPanel.h"

namespace talmo {

std::unique_ptr<Panel> LinuxPanels::makePanel() {
  if (!appearance_) appearance_.emplace();
  return std::make_unique<LinuxPanel>(vectors_, *appearance_);
}

}  // namespace talmo
