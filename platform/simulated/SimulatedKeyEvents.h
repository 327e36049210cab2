#pragma once

#include "platform/KeyEvents.h"
#include "platform/simulated/SimulatedApplications.h"

namespace talmo {

/// Key events that arrive at the applications of the simulated machine. Any thread.
class SimulatedKeyEvents : public KeyEvents {
 public:
  explicit SimulatedKeyEvents(SimulatedApplications& applications) : applications_(applications) {}

  void post(const KeyboardEvent& event, ProcessIdentifier process) override {
    applications_.recordKeyboardEvent(process, event);
  }

 private:
  SimulatedApplications& applications_;
};

}  // namespace talmo
