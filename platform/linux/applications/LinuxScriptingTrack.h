#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/linux/mediasession/PlayerState.h"
#include "platform/ScriptingObject.h"

namespace talmo {

/// A player's current track, as the player told of it when it was read; nobody is asked any more.
class LinuxScriptingTrack : public ScriptingObject {
 public:
  explicit LinuxScriptingTrack(PlayerState state) : state_(std::move(state)) {}

  void setTimeout(long) override {}
  bool respondsTo(std::string_view selector) const override;
  /// A track takes no commands.
  void send(std::string_view selector) override;
  std::optional<ScriptingValue> read(std::string_view property) override;
  std::optional<std::string> lastError() const override { return lastError_; }

 private:
  const PlayerState state_;
  std::optional<std::string> lastError_;
};

}  // namespace talmo
