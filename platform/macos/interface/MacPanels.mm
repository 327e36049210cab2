#include "platform/macos/interface/MacPanels.h"

#include <cassert>

#include "platform/macos/interface/MacPanel.h"

namespace talmo {

std::unique_ptr<Panel> MacPanels::makePanel() {
  assert(NSThread.isMainThread);
  return std::make_unique<MacPanel>();
}

}  // namespace talmo
