#pragma once

#include "platform/ProcessIdentifier.h"
#include "players/KeyMap.h"
#include "players/MusicAppController.h"

namespace talmo {

/// Drives a player by key strokes posted to its process, in the background.
class KeystrokeController : public MusicAppController {
 public:
  KeystrokeController(TargetApp targetApp, KeyMap keyMap);

  const TargetApp& targetApp() const override { return targetApp_; }
  void playPause() override;
  void nextTrack() override;
  void previousTrack() override;

  /// Posts one stroke, down and up, to a process: no check, no log line.
  static void postKeyStroke(const KeyStroke& stroke, ProcessIdentifier pid);

 private:
  void post(const KeyStroke& stroke);

  const TargetApp targetApp_;
  const KeyMap keyMap_;
};

}  // namespace talmo
