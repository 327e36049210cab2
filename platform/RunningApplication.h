#pragma once

#include <string>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// A running application, as it was when asked for.
struct RunningApplication {
  std::string bundleID;
  /// Its name in the person's language.
  std::string localizedName;
  ProcessIdentifier processIdentifier = 0;

  bool operator==(const RunningApplication&) const = default;
};

}  // namespace talmo
