#pragma once

#import <Foundation/Foundation.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/macos/processes/ChildEnding.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A task from its launch until it has ended, for so long it keeps itself: the system reaps the
/// child of a task that lives. Any thread.
class MacChild : public std::enable_shared_from_this<MacChild> {
 public:
  /// The task is set up, was not launched, and is used by nobody else from now on.
  explicit MacChild(NSTask* task);

  /// Once, a second time fails. Says in words why the child could not be started.
  std::optional<std::string> launch();

  bool isRunning() const;
  void terminate();
  void waitUntilExit();

  /// See `ChildProcess::setTerminationHandler`.
  void setTerminationHandler(ChildEnding::Handler handler) {
    ending_->setHandler(std::move(handler));
  }

 private:
  void end();

  // A task belongs to one thread at a time, but for waiting.
  mutable Mutex mutex_;
  NSTask* const task_;
  bool wasLaunched_ TALMO_GUARDED_BY(mutex_) = false;
  bool isStarted_ TALMO_GUARDED_BY(mutex_) = false;
  const std::shared_ptr<ChildEnding> ending_;
};

}  // namespace talmo
