#pragma once

#include <atomic>
#include <optional>
#include <string>

#include "platform/Application.h"
#include "platform/linux/dispatch/LinuxDispatch.h"

namespace talmo {

/// The program as an application of a Linux desktop; it ends with its main loop.
class LinuxOwnApplication : public Application {
 public:
  /// `dispatch` lives longer.
  explicit LinuxOwnApplication(LinuxDispatch& dispatch) : dispatch_(dispatch) {}

  void terminate() override;
  std::optional<std::string> environmentVariable(const std::string& name) const override;

  /// Whether `terminate` is what ended the main loop.
  bool isTerminating() const { return isTerminating_; }

 private:
  LinuxDispatch& dispatch_;
  std::atomic<bool> isTerminating_ = false;
};

}  // namespace talmo
