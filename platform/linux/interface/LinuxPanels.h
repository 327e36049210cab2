#pragma once

#include <memory>

#include "platform/Panels.h"

namespace talmo {

/// Panels as windows of the toolkit, without which none can be made.
class LinuxPanels : public Panels {
 public:
  std::unique_ptr<Panel> makePanel() override;
};

}  // namespace talmo
