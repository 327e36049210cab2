#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ChildProcessParameters.h"
#include "platform/ChildTermination.h"
#include "platform/Dispatch.h"
#include "platform/OutputPipe.h"
#include "platform/simulated/SimulatedChildScript.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// One child of the simulated machine with its pipes, which goes on when the object that started it
/// has gone. Steps and handlers run on a global queue of the `Dispatch`. Any thread.
class SimulatedChild : public std::enable_shared_from_this<SimulatedChild> {
 public:
  using Output = SimulatedChildScript::Output;
  using Reader = std::function<void(OutputPipe&)>;
  using Terminated = std::function<void(const ChildTermination&)>;

  /// What a pipe holds before its writer has to wait, as in the Linux kernel (pipe(7)).
  static constexpr std::size_t pipeCapacity = 65536;

  SimulatedChild(Dispatch& dispatch, ChildProcessParameters parameters);

  const ChildProcessParameters& parameters() const { return parameters_; }

  /// See `ChildProcess::launch`.
  std::optional<std::string> launch(SimulatedChildScript script);
  bool isRunning() const;
  std::optional<ChildTermination> termination() const;
  /// How often it was asked to end.
  int terminates() const;

  /// Has it write to its standard output, while it runs and its script writes nothing. The bytes
  /// fit into the pipe.
  void say(const std::string& bytes);
  void terminate();
  /// Ends it, if it runs, whatever it would rather do.
  void end(ChildTermination termination);
  void waitUntilExit();
  void setTerminationHandler(Terminated handler);

  /// Tells a pipe which object is its reading end; before the launch.
  void setReadingEnd(Output output, const std::weak_ptr<OutputPipe>& end);
  /// The reading end has gone: the handler is forgotten, and a write ends the child (SIGPIPE).
  void closeReadingEnd(Output output);
  void setReadabilityHandler(Output output, Reader handler);
  /// The next piece, or everything up to the end of the file.
  std::string read(Output output, bool toEnd);

 private:
  struct Pipe {
    std::string bytes;
    bool isConnected = false;
    bool hasWriter = true;
    bool hasReader = true;
    std::weak_ptr<OutputPipe> reader;
    std::shared_ptr<const Reader> handler;
    /// Whether a call of a handler has been queued or is under way.
    bool isCalling = false;
  };

  void advance();
  bool take(const SimulatedChildScript::Step& step) TALMO_REQUIRES(mutex_);
  bool write(Pipe& pipe, const std::string& bytes) TALMO_REQUIRES(mutex_);
  void goOn() TALMO_REQUIRES(mutex_);
  void finish(ChildTermination termination) TALMO_REQUIRES(mutex_);
  void closeWritingEnd(Pipe& pipe) TALMO_REQUIRES(mutex_);
  void callReader(Pipe& pipe) TALMO_REQUIRES(mutex_);
  void runReader(Pipe& pipe);
  void callTerminated() TALMO_REQUIRES(mutex_);
  void runTerminated();
  std::shared_ptr<Semaphore> nextChange() TALMO_REQUIRES(mutex_);
  void announceChange() TALMO_REQUIRES(mutex_);
  Pipe& pipe(Output output) TALMO_REQUIRES(mutex_) {
    return pipes_.at(static_cast<std::size_t>(output));
  }

  Dispatch& dispatch_;
  Queue& queue_;
  const ChildProcessParameters parameters_;
  mutable Mutex mutex_;
  SimulatedChildScript script_ TALMO_GUARDED_BY(mutex_);
  std::size_t step_ TALMO_GUARDED_BY(mutex_) = 0;
  /// How much of the step's bytes have been written.
  std::size_t written_ TALMO_GUARDED_BY(mutex_) = 0;
  bool waitsForSpace_ TALMO_GUARDED_BY(mutex_) = false;
  bool wasLaunched_ TALMO_GUARDED_BY(mutex_) = false;
  bool isRunning_ TALMO_GUARDED_BY(mutex_) = false;
  int terminates_ TALMO_GUARDED_BY(mutex_) = 0;
  std::optional<ChildTermination> termination_ TALMO_GUARDED_BY(mutex_);
  Terminated terminated_ TALMO_GUARDED_BY(mutex_);
  std::array<Pipe, 2> pipes_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::shared_ptr<Semaphore>> waiters_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
