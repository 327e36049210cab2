#pragma once

#include <memory>

#include "platform/Panel.h"

namespace talmo {

/// Makes panels. Main thread only.
class Panels {
 public:
  virtual ~Panels() = default;

  virtual std::unique_ptr<Panel> makePanel() = 0;
};

}  // namespace talmo
