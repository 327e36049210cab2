#pragma once

#include <memory>

#include "platform/Panels.h"

namespace talmo {

/// Panels of AppKit.
class MacPanels : public Panels {
 public:
  std::unique_ptr<Panel> makePanel() override;
};

}  // namespace talmo
