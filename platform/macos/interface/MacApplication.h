#pragma once

#include <optional>
#include <string>

#include "platform/Application.h"

namespace talmo {

/// The shared application. Main thread, unless the interface says otherwise.
class MacApplication : public Application {
 public:
  void activate() override;
  void terminate() override;
  void orderFrontStandardAboutPanel() override;
  std::optional<InterfaceEvent> currentEvent() const override;
  void performHapticFeedback(int pattern) override;
  std::optional<std::string> environmentVariable(const std::string& name) const override;
};

}  // namespace talmo
