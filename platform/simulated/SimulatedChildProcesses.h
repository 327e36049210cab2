#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/ChildProcesses.h"
#include "platform/Dispatch.h"
#include "platform/simulated/SimulatedChild.h"
#include "platform/simulated/SimulatedChildScript.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Child processes of the simulated machine: each launch follows a script. Any thread.
class SimulatedChildProcesses : public ChildProcesses {
 public:
  using Programs = std::function<SimulatedChildScript(const ChildProcessParameters&)>;

  /// One launch, as it stands now.
  struct Launch {
    ChildProcessParameters parameters;
    bool isRunning = false;
    /// How often it was asked to end.
    int terminates = 0;
    /// Nothing while it runs, and when it could not be started.
    std::optional<ChildTermination> termination;
  };

  explicit SimulatedChildProcesses(Dispatch& dispatch) : dispatch_(dispatch) {}

  std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) override;

  /// What each launch from now on follows; at first there are no programs, and every launch fails.
  /// Called on the launching thread.
  void setPrograms(Programs programs);

  /// Has every running child that was started with this last argument write to its standard output;
  /// see `SimulatedChild::say`.
  void write(const std::string& lastArgument, const std::string& bytes);

  /// Every launch so far, in order, also those that failed.
  std::vector<Launch> launches() const;

  /// The parameters of the children that run, in the order of their launches.
  std::vector<ChildProcessParameters> running() const;

  /// Ends every child at once, as the machine does when it goes down.
  void killAll();

 private:
  class Process;
  class Pipe;

  std::vector<std::shared_ptr<SimulatedChild>> children() const;
  std::optional<std::string> launch(const std::shared_ptr<SimulatedChild>& child);

  Dispatch& dispatch_;
  mutable Mutex mutex_;
  std::shared_ptr<const Programs> programs_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::shared_ptr<SimulatedChild>> children_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
