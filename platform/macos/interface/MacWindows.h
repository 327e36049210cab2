#pragma once

#include <memory>

#include "platform/Windows.h"

namespace talmo {

/// Windows of AppKit.
class MacWindows : public Windows {
 public:
  std::unique_ptr<Window> makeWindow(const WindowParameters& parameters) override;
};

}  // namespace talmo
