#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/processes/ChildWatcher.h"
#include "platform/OutputPipe.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The reading end of a pipe; its handlers run on the watcher's thread.
class LinuxOutputPipe : public OutputPipe, public std::enable_shared_from_this<LinuxOutputPipe> {
 public:
  /// `readingEnd` does not block; without one the pipe is at its end.
  LinuxOutputPipe(std::shared_ptr<ChildWatcher> watcher, FileDescriptor readingEnd);
  ~LinuxOutputPipe() override;

  void setReadabilityHandler(std::function<void(OutputPipe&)> handler) override;
  std::string availableData() override;
  std::string readToEnd() override;

 private:
  using Handler = std::function<void(OutputPipe&)>;

  void callHandler();

  const std::shared_ptr<ChildWatcher> watcher_;
  const FileDescriptor readingEnd_;
  Mutex mutex_;
  std::shared_ptr<const Handler> handler_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
