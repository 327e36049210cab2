#include "platform/macos/processes/MacChildProcesses.h"

#include "platform/macos/processes/MacChildProcess.h"

namespace talmo {

std::shared_ptr<ChildProcess> MacChildProcesses::make(const ChildProcessParameters& parameters) {
  @autoreleasepool {
    return std::make_shared<MacChildProcess>(parameters);
  }
}

}  // namespace talmo
