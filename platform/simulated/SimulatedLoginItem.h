#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/LoginItem.h"

namespace talmo {

/// The login item of the simulated machine; not registered at first. Main thread.
class SimulatedLoginItem : public LoginItem {
 public:
  bool isEnabled() const override { return isEnabled_; }
  std::optional<std::string> registerMainApp() override { return change(registrations_, true); }
  std::optional<std::string> unregisterMainApp() override {
    return change(unregistrations_, false);
  }

  /// As by the person, in the system's settings.
  void setEnabled(bool isEnabled) { isEnabled_ = isEnabled; }
  /// What goes wrong with every change from now on; nothing, as at first, when they succeed.
  void setFailure(std::optional<std::string> failure) { failure_ = std::move(failure); }

  /// How often each was called.
  int registrations() const { return registrations_; }
  int unregistrations() const { return unregistrations_; }

 private:
  std::optional<std::string> change(int& calls, bool isEnabled) {
    ++calls;
    if (!failure_) isEnabled_ = isEnabled;
    return failure_;
  }

  bool isEnabled_ = false;
  std::optional<std::string> failure_;
  int registrations_ = 0;
  int unregistrations_ = 0;
};

}  // namespace talmo
