#pragma once

#include "platform/SoftwareUpdate.h"

namespace talmo {

/// No framework: on Linux the packages of the distribution are what is updated.
class LinuxSoftwareUpdate : public SoftwareUpdate {
 public:
  std::unique_ptr<StandardUpdaterController> makeStandardUpdaterController(
      bool, StandardUserDriverDelegate&) override {
    return nullptr;
  }
};

}  // namespace talmo
