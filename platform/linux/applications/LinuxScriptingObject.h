#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/applications/LastInstances.h"
#include "platform/linux/applications/LinuxApplication.h"
#include "platform/ScriptingObject.h"
#include "support/Time.h"

namespace talmo {

/// A media player, addressed over MPRIS on the calling thread's connection to the session bus.
/// Of several instances, the one that plays is meant, then one that is paused.
class LinuxScriptingObject : public ScriptingObject {
 public:
  /// `application` has player names and outlives this object.
  LinuxScriptingObject(const LinuxApplication& application,
                       std::shared_ptr<LastInstances> lastInstances);

  void setTimeout(long ticks) override;
  bool respondsTo(std::string_view selector) const override;
  void send(std::string_view selector) override;
  std::optional<std::string> lastError() const override;

 private:
  /// Sends to the right instance; what went wrong, or nothing.
  std::optional<std::string> trySend(std::string_view selector);
  /// The instance that is meant. `names` is not empty.
  std::string chooseInstance(const std::vector<std::string>& names, Uptime start) const;
  std::string noAnswer() const;

  const LinuxApplication& application_;
  const std::shared_ptr<LastInstances> lastInstances_;
  /// An Apple event's own default is about a minute (`kAEDefaultTimeout`).
  Duration timeout_ = std::chrono::minutes(1);
  std::optional<std::string> lastError_;
};

}  // namespace talmo
