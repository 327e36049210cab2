#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <optional>
#include <sys/types.h>

#include "platform/ChildTermination.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/processes/ChildWatcher.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A child that was started, until it has ended and has been reaped: the watcher keeps it for so
/// long. Any thread.
class LinuxChild : public std::enable_shared_from_this<LinuxChild> {
 public:
  using Terminated = std::function<void(const ChildTermination&)>;

  explicit LinuxChild(std::shared_ptr<ChildWatcher> watcher) : watcher_(std::move(watcher)) {}

  /// Takes over the process, of which nobody else waits for the end; once.
  void watch(FileDescriptor process);

  bool isRunning() const;
  void terminate() const;
  void waitUntilExit();
  void setTerminationHandler(Terminated handler);

 private:
  void reap();
  void callHandler();

  const std::shared_ptr<ChildWatcher> watcher_;
  mutable Mutex mutex_;
  std::condition_variable_any ended_;
  // There while it runs.
  FileDescriptor process_ TALMO_GUARDED_BY(mutex_);
  std::optional<ChildTermination> termination_ TALMO_GUARDED_BY(mutex_);
  Terminated handler_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
