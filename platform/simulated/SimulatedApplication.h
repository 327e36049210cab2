#pragma once

#include "platform/Application.h"

namespace talmo {

/// The program as an application of the simulated machine.
class SimulatedApplication : public Application {
 public:
  void activate() override { ++activations_; }

  /// How often the program was brought to the front.
  int activations() const { return activations_; }

 private:
  int activations_ = 0;
};

}  // namespace talmo
