#pragma once

#include <string_view>

#include "players/MusicAppController.h"

namespace talmo {

/// Drives a scriptable player by Apple events. A command blocks its caller for two seconds at the
/// most.
class ScriptingBridgeController : public MusicAppController {
 public:
  explicit ScriptingBridgeController(TargetApp targetApp);

  const TargetApp& targetApp() const override { return targetApp_; }
  void playPause() override;
  void nextTrack() override;
  void previousTrack() override;

 private:
  void send(std::string_view selector);

  const TargetApp targetApp_;
};

}  // namespace talmo
