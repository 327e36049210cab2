#pragma once

#include <optional>
#include <vector>

#include "platform/RunningApplication.h"
#include "support/Time.h"

namespace talmo {

/// A running application and when it was launched; of some that came with the session the system
/// does not know it.
struct LaunchedInstance {
  RunningApplication application;
  std::optional<Date> launched;
};

/// The applications, oldest first; those without a date came before all others, and what is left
/// is decided by the process's number.
std::vector<RunningApplication> oldestFirst(std::vector<LaunchedInstance> instances);

}  // namespace talmo
