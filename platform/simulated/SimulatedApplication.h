#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Application.h"
#include "platform/Dispatch.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The program as an application of the simulated machine, where it goes on when it is to end; its
/// environment is empty at first. The main thread's but for terminations and the environment.
class SimulatedApplication : public Application {
 public:
  explicit SimulatedApplication(Dispatch& dispatch) : dispatch_(dispatch) {}

  void activate() override { ++activations_; }

  void terminate() override {
    const MutexLock lock(mutex_);
    ++terminations_;
    if (!dispatch_.isMainThread()) ++terminationsOffTheMainThread_;
  }

  void orderFrontStandardAboutPanel() override { ++aboutPanels_; }
  std::optional<InterfaceEvent> currentEvent() const override { return currentEvent_; }
  void performHapticFeedback(int pattern) override { hapticFeedback_.push_back(pattern); }

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

  /// Says which event is being handled.
  void setCurrentEvent(const std::optional<InterfaceEvent>& event) { currentEvent_ = event; }

  /// A number for a new window of the program.
  WindowIdentifier makeWindow() { return ++lastWindow_; }

  // How often something was asked for so far.

  int activations() const { return activations_; }
  int aboutPanels() const { return aboutPanels_; }
  /// The patterns, in order.
  const std::vector<int>& hapticFeedback() const { return hapticFeedback_; }
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
  int activations_ = 0;
  int aboutPanels_ = 0;
  std::vector<int> hapticFeedback_;
  std::optional<InterfaceEvent> currentEvent_;
  WindowIdentifier lastWindow_ = 0;
};

}  // namespace talmo
