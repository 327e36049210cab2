#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/applications/BusCall.h"
#include "platform/linux/applications/BusReply.h"
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
  std::optional<ScriptingValue> read(std::string_view property) override;
  std::optional<std::string> lastError() const override;

 private:
  /// The bus name of the instance that is meant; without one it says why in `lastError_`.
  std::optional<std::string> instance(Uptime start);
  /// The instance that is meant. `names` is not empty.
  std::string chooseInstance(const std::vector<std::string>& names, Uptime start) const;
  /// Waits for the reply; without one it says why in `lastError_`.
  BusReply call(const BusCall& call, Uptime start);

  const LinuxApplication& application_;
  const std::shared_ptr<LastInstances> lastInstances_;
  /// An Apple event's own default is about a minute (`kAEDefaultTimeout`).
  Duration timeout_ = std::chrono::minutes(1);
  std::optional<std::string> lastError_;
};

}  // namespace talmo
