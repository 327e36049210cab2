#pragma once

#include <string>

#include "platform/Wording.h"

namespace talmo {

/// The texts are written of the Mac.
class MacWording : public Wording {
 public:
  std::string of(const std::string& text) const override { return text; }
};

}  // namespace talmo
