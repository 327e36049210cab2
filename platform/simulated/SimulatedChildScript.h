#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/ChildTermination.h"
#include "support/Time.h"

namespace talmo {

/// What a simulated child does, step by step, in the time of its `Dispatch`:
///
///     SimulatedChildScript().write("one\n").wait(1s).exit(3)
///
/// After the last step it exits with status zero.
class SimulatedChildScript {
 public:
  enum class Output { standardOutput, standardError };

  struct Write {
    Output output;
    std::string bytes;
  };
  struct Wait {
    Duration duration;
  };
  struct Close {
    Output output;
  };
  struct End {
    ChildTermination termination;
  };
  struct LiveOn {};
  using Step = std::variant<Write, Wait, Close, End, LiveOn>;

  /// Writes to the standard output; stands still while the pipe is full.
  SimulatedChildScript& write(std::string bytes) {
    return then(Write{Output::standardOutput, std::move(bytes)});
  }
  SimulatedChildScript& writeError(std::string bytes) {
    return then(Write{Output::standardError, std::move(bytes)});
  }
  SimulatedChildScript& wait(Duration duration) { return then(Wait{duration}); }
  /// Closes the standard output and goes on.
  SimulatedChildScript& closeOutput() { return then(Close{Output::standardOutput}); }
  SimulatedChildScript& exit(int status) {
    return then(End{{ChildTermination::Reason::exit, status}});
  }
  /// Ends by a signal of its own making.
  SimulatedChildScript& signal(int number) {
    return then(End{{ChildTermination::Reason::uncaughtSignal, number}});
  }
  /// Does nothing any more, and does not end by itself.
  SimulatedChildScript& liveOn() { return then(LiveOn{}); }

  /// Does not end when it is asked to.
  SimulatedChildScript& ignoreTerminate() {
    obeysTerminate_ = false;
    return *this;
  }

  /// A program that cannot be started, and why.
  static SimulatedChildScript launchFailure(std::string words) {
    SimulatedChildScript script;
    script.launchFailure_ = std::move(words);
    return script;
  }

  const std::vector<Step>& steps() const { return steps_; }
  bool obeysTerminate() const { return obeysTerminate_; }
  const std::optional<std::string>& launchFailure() const { return launchFailure_; }

 private:
  SimulatedChildScript& then(Step step) {
    steps_.push_back(std::move(step));
    return *this;
  }

  std::vector<Step> steps_;
  bool obeysTerminate_ = true;
  std::optional<std::string> launchFailure_;
};

}  // namespace talmo
