#pragma once

#include "platform/LoginItem.h"

namespace talmo {

/// The application as a login item of Service Management's, which names it by its bundle. What the
/// person switched off in the system's settings only they can switch on again.
class MacLoginItem : public LoginItem {
 public:
  bool isEnabled() const override;
  std::optional<std::string> registerMainApp() override;
  std::optional<std::string> unregisterMainApp() override;
};

}  // namespace talmo
