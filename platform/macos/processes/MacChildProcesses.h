#pragma once

#include <memory>

#include "platform/ChildProcesses.h"

namespace talmo {

/// Child processes by `NSTask`, each watched by the system; handlers run on queues of the system's.
class MacChildProcesses : public ChildProcesses {
 public:
  std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) override;
};

}  // namespace talmo
