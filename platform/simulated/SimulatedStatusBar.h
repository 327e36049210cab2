#pragma once

#include <memory>
#include <vector>

#include "platform/simulated/SimulatedStatusItem.h"
#include "platform/StatusBar.h"

namespace talmo {

/// The bar of status items of a machine with one screen. Main thread only.
class SimulatedStatusBar : public StatusBar {
 public:
  /// Both live for longer.
  SimulatedStatusBar(SimulatedApplication& application, SimulatedEventMonitors& monitors)
      : application_(application), monitors_(monitors) {}

  std::unique_ptr<StatusItem> makeStatusItem(double length) override {
    return std::make_unique<SimulatedStatusItem>(items_, screen_, application_, monitors_, length);
  }

  /// Oldest first.
  const std::vector<SimulatedStatusItem*>& items() const { return items_; }

  /// The screen that the bar is on, to be changed at will.
  SimulatedScreen& screen() { return screen_; }

 private:
  SimulatedApplication& application_;
  SimulatedEventMonitors& monitors_;
  std::vector<SimulatedStatusItem*> items_;
  SimulatedScreen screen_;
};

}  // namespace talmo
