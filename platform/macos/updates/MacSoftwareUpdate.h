#pragma once

#include "platform/SoftwareUpdate.h"

namespace talmo {

/// Sparkle, where the program was built with it (`TALMO_SPARKLE`), and else no framework: one of
/// `SparkleUpdate.mm` and `NoSoftwareUpdate.cpp` is built.
class MacSoftwareUpdate : public SoftwareUpdate {
 public:
  std::unique_ptr<StandardUpdaterController> makeStandardUpdaterController(
      bool startingUpdater, StandardUserDriverDelegate& userDriverDelegate) override;
};

}  // namespace talmo
