#pragma once

#include "platform/Application.h"

namespace talmo {

/// The program as an application of a Linux desktop.
class LinuxOwnApplication : public Application {
 public:
  /// Nothing yet: the program has no window.
  void activate() override {}
};

}  // namespace talmo
