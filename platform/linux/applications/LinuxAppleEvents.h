#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/AppleEvents.h"
#include "platform/linux/applications/LastInstances.h"
#include "platform/linux/applications/LinuxApplication.h"

namespace talmo {

/// Apple events as MPRIS calls over the session bus. The desktop asks nobody for consent, so a
/// player that is on the bus has given it, and a browser by its debugging socket.
class LinuxAppleEvents : public AppleEvents {
 public:
  /// `consentPage` is the file that tells a person how a browser consents; empty for none.
  explicit LinuxAppleEvents(std::string consentPage = {}) : consentPage_(std::move(consentPage)) {}

  /// A player that cannot be found within a second does not run, be it for want of a session bus:
  /// nobody will be asked about it. For a browser it takes half a second at most: granted when its
  /// debugging socket answers, not permitted when it runs without one. With `askUserIfNeeded` such
  /// a browser shows the page that tells how it consents; the status is the present one all the
  /// same.
  std::optional<std::int32_t> determinePermission(const std::string& bundleID,
                                                  bool askUserIfNeeded) override;

  std::unique_ptr<ScriptingObject> application(const std::string& bundleID) override;

 private:
  std::int32_t determineConsent(const LinuxApplication& browser, bool askUserIfNeeded) const;

  const std::string consentPage_;
  const std::shared_ptr<LastInstances> lastInstances_ = std::make_shared<LastInstances>();
};

}  // namespace talmo
