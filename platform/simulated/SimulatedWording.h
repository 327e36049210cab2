#pragma once

#include <string>

#include "platform/Wording.h"

namespace talmo {

/// The simulated machine is spoken of as a Mac.
class SimulatedWording : public Wording {
 public:
  std::string of(const std::string& text) const override { return text; }
};

}  // namespace talmo
