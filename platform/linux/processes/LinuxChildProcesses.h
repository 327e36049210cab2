#pragma once

#include <memory>

#include "platform/ChildProcesses.h"
#include "platform/linux/processes/ChildWatcher.h"

namespace talmo {

/// Child processes by posix_spawn(3), watched by one thread (see `ChildWatcher`), which also runs
/// every handler. Its end ends no child; what runs then is left to the system, and no handler is
/// called any more.
class LinuxChildProcesses : public ChildProcesses {
 public:
  ~LinuxChildProcesses() override { watcher_->stop(); }

  std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) override;

 private:
  // Shared with the children's objects.
  const std::shared_ptr<ChildWatcher> watcher_ = std::make_shared<ChildWatcher>();
};

}  // namespace talmo
