#pragma once

#include <string>

#include "platform/Wording.h"

namespace talmo {

/// A Linux system as its person knows it: the desktop.
class LinuxWording : public Wording {
 public:
  std::string of(const std::string& text) const override;
};

}  // namespace talmo
