#pragma once

#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/simulated/SimulatedApplications.h"

namespace talmo {

/// The windows of the applications of the simulated machine. Any thread.
class SimulatedAccessibility : public Accessibility {
 public:
  explicit SimulatedAccessibility(const SimulatedApplications& applications)
      : applications_(applications) {}

  std::vector<std::string> windowTitles(ProcessIdentifier process) override {
    std::vector<std::string> titles = applications_.windowTitles(process);
    std::erase(titles, std::string());
    return titles;
  }

 private:
  const SimulatedApplications& applications_;
};

}  // namespace talmo
