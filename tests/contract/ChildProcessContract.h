#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"
#include "tests/contract/ChildProcessWorld.h"

namespace talmo::test {

/// What the handlers of one child were called with. Any thread.
class ChildRecord {
 public:
  void addOutput(const std::string& piece) {
    const MutexLock lock(mutex_);
    if (piece.empty()) ++ends_;
    if (ends_ > 0) afterEnd_ += piece.size();
    output_ += piece;
  }
  void addTermination(const ChildTermination& termination) {
    const MutexLock lock(mutex_);
    terminations_.push_back(termination);
  }

  std::string output() const {
    const MutexLock lock(mutex_);
    return output_;
  }
  /// How many calls told of the end of the file, and how many bytes came after it.
  int ends() const {
    const MutexLock lock(mutex_);
    return ends_;
  }
  std::size_t afterEnd() const {
    const MutexLock lock(mutex_);
    return afterEnd_;
  }
  std::vector<ChildTermination> terminations() const {
    const MutexLock lock(mutex_);
    return terminations_;
  }

 private:
  mutable Mutex mutex_;
  std::string output_ TALMO_GUARDED_BY(mutex_);
  int ends_ TALMO_GUARDED_BY(mutex_) = 0;
  std::size_t afterEnd_ TALMO_GUARDED_BY(mutex_) = 0;
  std::vector<ChildTermination> terminations_ TALMO_GUARDED_BY(mutex_);
};

/// What every `ChildProcesses` does. Instantiated once per backend, with what makes a fresh world.
class ChildProcessContract
    : public testing::TestWithParam<std::function<std::unique_ptr<ChildProcessWorld>()>> {
 protected:
  using Script = SimulatedChildScript;

  ChildProcessWorld& world() { return *world_; }

  /// Far longer than anything here takes; it only bounds a failure.
  static constexpr Duration patience = std::chrono::seconds(20);

  bool runUntil(const std::function<bool()>& condition) {
    return world_->runUntil(condition, patience);
  }

  std::shared_ptr<ChildProcess> make(const ChildProcessParameters& parameters) {
    return world_->childProcesses().make(parameters);
  }
  std::shared_ptr<ChildProcess> make(const Script& script) { return make(world_->program(script)); }

  /// A handler that records the end.
  static std::function<void(const ChildTermination&)> ending(
      const std::shared_ptr<ChildRecord>& record);
  /// A handler that reads and records.
  static std::function<void(OutputPipe&)> reading(const std::shared_ptr<ChildRecord>& record);

  /// Runs `work`, which may wait, off the main thread; returns whether it ended.
  bool runAside(const std::function<void()>& work);

  /// Starts a child and runs until it has ended.
  void runChild(const Script& script);

 private:
  const std::unique_ptr<ChildProcessWorld> world_ = GetParam()();
};

}  // namespace talmo::test
