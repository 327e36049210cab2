#include "platform/linux/interface/LinuxPanels.h"

#include "platform/linux/interface/LinuxPanel.h"

namespace talmo {

std::unique_ptr<Panel> LinuxPanels::makePanel() {
  return std::make_unique<LinuxPanel>();
}

}  // namespace talmo
