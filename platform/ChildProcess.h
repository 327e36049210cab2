#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ChildTermination.h"
#include "platform/OutputPipe.h"

namespace talmo {

/// One child process, made by `ChildProcesses`. Every function may be called on any thread.
///
/// Letting go of it neither ends the child nor waits for it; its termination handler does not begin
/// any more, and the system is told to forget the child when it ends. Its pipes go with it, unless
/// somebody else holds them; a child that writes to a pipe that has gone is ended by SIGPIPE.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;

  /// Starts the child; once, a second time fails. Says in words why it could not be started, and
  /// nothing when it runs. The pipes of a child that could not be started are at their end.
  virtual std::optional<std::string> launch() = 0;

  /// Whether it has been started and has not ended. False at the latest when the termination
  /// handler is called.
  virtual bool isRunning() const = 0;

  /// Asks the child to end (SIGTERM), which it may ignore. Nothing happens when it does not run.
  virtual void terminate() = 0;

  /// Returns when the child has ended, at once when it was never started. Not on the main thread.
  virtual void waitUntilExit() = 0;

  /// `handler` is called once, on a thread of the system, when the child has ended, whatever is
  /// still in its pipes; at once when that has been before. It must not wait for anything. An empty
  /// function takes the handler away.
  virtual void setTerminationHandler(std::function<void(const ChildTermination&)> handler) = 0;

  /// The pipe behind the child's standard output; nothing when that is the null device.
  virtual std::shared_ptr<OutputPipe> standardOutput() = 0;

  /// The pipe behind the child's standard error; nothing when that is the null device.
  virtual std::shared_ptr<OutputPipe> standardError() = 0;
};

}  // namespace talmo
