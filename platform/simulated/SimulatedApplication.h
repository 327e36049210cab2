#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The program as an application of the simulated machine, where it goes on when it is to end; its
/// environment is empty at first. Any thread.
class SimulatedApplication : public Application {
 public:
  explicit SimulatedApplication(Dispatch& dispatch) : dispatch_(dispatch) {}

  void terminate() override {
    const MutexLock lock(mutex_);
    ++terminations_;
    if (!dispatch_.isMainThread()) ++terminationsOffTheMainThread_;
  }

  std::optional<std::string> environmentVariable(const std::string& name) const override {
    const MutexLock lock(mutex_);
    const auto found = environment_.find(name);
    if (found == environment_.end()) return std::nullopt;
    return found->second;
  }

  void setEnvironmentVariable(const std::string& name, std::string value) {
    const MutexLock lock(mutex_);
    environment_[name] = std::move(value);
  }

  /// How often the program was to end, and how often that was said on a thread that may not.
  int terminations() const {
    const MutexLock lock(mutex_);
    return terminations_;
  }
  int terminationsOffTheMainThread() const {
    const MutexLock lock(mutex_);
    return terminationsOffTheMainThread_;
  }

 private:
  Dispatch& dispatch_;
  mutable Mutex mutex_;
  std::map<std::string, std::string> environment_ TALMO_GUARDED_BY(mutex_);
  int terminations_ TALMO_GUARDED_BY(mutex_) = 0;
  int terminationsOffTheMainThread_ TALMO_GUARDED_BY(mutex_) = 0;
};

}  // namespace talmo
