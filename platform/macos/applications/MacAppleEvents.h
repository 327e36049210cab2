#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/AppleEvents.h"

namespace talmo {

/// Apple events by Scripting Bridge, and the system's record of who may automate whom.
class MacAppleEvents : public AppleEvents {
 public:
  std::optional<std::int32_t> determinePermission(const std::string& bundleID,
                                                  bool askUserIfNeeded) override;

  /// Nothing too for an application without a scripting dictionary.
  std::unique_ptr<ScriptingObject> application(const std::string& bundleID) override;
};

}  // namespace talmo
