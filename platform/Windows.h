#pragma once

#include <memory>

#include "platform/Window.h"
#include "platform/WindowParameters.h"

namespace talmo {

/// Makes windows. Main thread only.
class Windows {
 public:
  virtual ~Windows() = default;

  virtual std::unique_ptr<Window> makeWindow(const WindowParameters& parameters) = 0;
};

}  // namespace talmo
