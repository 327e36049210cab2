#pragma once

#include <filesystem>
#include <memory>
#include <utility>

#include "platform/ChildProcesses.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/linux/processes/ChildWatcher.h"

namespace talmo {

/// Child processes by posix_spawn(3), watched by one thread (see `ChildWatcher`), which also runs
/// every handler. Its end ends no child; what runs then is left to the system, and no handler is
/// called any more. Some programs of the Mac are our own here (see `executableToStart`).
class LinuxChildProcesses : public ChildProcesses {
 public:
  /// Our own programs are in the bundle's folder: the running program's, or another absolute one.
  explicit LinuxChildProcesses(
      std::filesystem::path bundleFolder = LinuxBundle::folderOfTheProgram())
      : bundleFolder_(std::move(bundleFolder)) {}
  ~LinuxChildProcesses() override { watcher_->stop(); }

  std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) override;

 private:
  const std::filesystem::path bundleFolder_;
  // Shared with the children's objects.
  const std::shared_ptr<ChildWatcher> watcher_ = std::make_shared<ChildWatcher>();
};

}  // namespace talmo
