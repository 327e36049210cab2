#pragma once

#include <memory>

#include "platform/StandardUpdaterController.h"
#include "platform/StandardUserDriverDelegate.h"

namespace talmo {

/// The framework that keeps the program up to date; a system may have none. Main thread.
class SoftwareUpdate {
 public:
  virtual ~SoftwareUpdate() = default;

  /// Makes an updater, and starts it if `startingUpdater`; nothing without the framework. Where its
  /// feed is it finds in the bundle's information dictionary. The delegate outlives the updater.
  virtual std::unique_ptr<StandardUpdaterController> makeStandardUpdaterController(
      bool startingUpdater, StandardUserDriverDelegate& userDriverDelegate) = 0;
};

}  // namespace talmo
