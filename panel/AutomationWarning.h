#pragma once

#include <string>

namespace talmo {

/// The chosen player cannot be reached, or seen, because Automation is off for it.
struct AutomationWarning {
  /// The player's display name.
  std::string name;
  std::string explanation;
  std::string title;

  bool operator==(const AutomationWarning&) const = default;
};

}  // namespace talmo
