#pragma once

#include <memory>

#include "platform/ChildProcess.h"
#include "platform/ChildProcessParameters.h"

namespace talmo {

/// Starting other programs and listening to them.
///
/// Called by the components that run helpers, on any thread.
class ChildProcesses {
 public:
  virtual ~ChildProcesses() = default;

  /// A child that has not been started yet. Never fails: what is wrong shows at its launch.
  virtual std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) = 0;
};

}  // namespace talmo
