#pragma once

#include <memory>
#include <vector>

#include "platform/simulated/SimulatedWindow.h"
#include "platform/Windows.h"

namespace talmo {

/// Makes windows and knows those that there are. Main thread only.
class SimulatedWindows : public Windows {
 public:
  /// `application` lives for longer.
  explicit SimulatedWindows(const SimulatedApplication& application) : application_(application) {}

  std::unique_ptr<Window> makeWindow(const WindowParameters& parameters) override {
    return std::make_unique<SimulatedWindow>(windows_, application_, parameters);
  }

  /// Oldest first.
  const std::vector<SimulatedWindow*>& windows() const { return windows_; }

 private:
  const SimulatedApplication& application_;
  std::vector<SimulatedWindow*> windows_;
};

}  // namespace talmo
