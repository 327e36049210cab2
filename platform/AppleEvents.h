#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/ScriptingObject.h"

namespace talmo {

/// Apple events: may this program automate that application, and sending it commands.
///
/// Called on background queues only, as both functions may wait for the application or the person:
/// consent by `AutomationPermission`, scripting objects by the scriptable-player controller on the
/// command queue and by the now-playing polls on theirs.
class AppleEvents {
 public:
  virtual ~AppleEvents() = default;

  /// The system's status (an `OSStatus` of `AEDeterminePermissionToAutomateTarget`, wildcard event
  /// class and id) for automating the application: 0 granted, -1743 not permitted, -1744 consent
  /// would be required, -600 not running. Nothing when no target can be made of the identifier.
  /// With `askUserIfNeeded` it may show the system's dialog and wait for the answer.
  virtual std::optional<std::int32_t> determinePermission(const std::string& bundleID,
                                                          bool askUserIfNeeded) = 0;

  /// The scripting object of an application; nothing when there is no such application.
  virtual std::unique_ptr<ScriptingObject> application(const std::string& bundleID) = 0;
};

}  // namespace talmo
