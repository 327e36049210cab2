#pragma once

#include <memory>
#include <vector>

#include "platform/Panels.h"
#include "platform/simulated/SimulatedPanel.h"

namespace talmo {

/// Makes panels and knows those that there are. Main thread only.
class SimulatedPanels : public Panels {
 public:
  /// Both live for longer.
  SimulatedPanels(SimulatedApplication& application, SimulatedEventMonitors& monitors)
      : application_(application), monitors_(monitors) {}

  std::unique_ptr<Panel> makePanel() override {
    return std::make_unique<SimulatedPanel>(panels_, application_, monitors_);
  }

  /// Oldest first.
  const std::vector<SimulatedPanel*>& panels() const { return panels_; }

 private:
  SimulatedApplication& application_;
  SimulatedEventMonitors& monitors_;
  std::vector<SimulatedPanel*> panels_;
};

}  // namespace talmo
