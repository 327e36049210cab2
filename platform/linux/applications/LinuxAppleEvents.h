#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/AppleEvents.h"
#include "platform/linux/applications/LastInstances.h"

namespace talmo {

/// Apple events as MPRIS calls over the session bus. The desktop asks nobody for consent, so a
/// player that is on the bus has given it.
class LinuxAppleEvents : public AppleEvents {
 public:
  /// The status when the session bus is not there or does not answer within a second: the Apple
  /// event manager's `connectionInvalid` (MacErrors.h).
  static constexpr std::int32_t connectionInvalid = -609;

  /// Never asks the person, whatever `askUserIfNeeded` says.
  std::optional<std::int32_t> determinePermission(const std::string& bundleID,
                                                  bool askUserIfNeeded) override;

  std::unique_ptr<ScriptingObject> application(const std::string& bundleID) override;

 private:
  const std::shared_ptr<LastInstances> lastInstances_ = std::make_shared<LastInstances>();
};

}  // namespace talmo
