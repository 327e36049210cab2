#pragma once

#include "players/TargetApp.h"

namespace talmo {

/// Drives one player. Called on the coordinator's command queue, one command at a time; a command
/// has no result, and a failure goes to the log.
class MusicAppController {
 public:
  virtual ~MusicAppController() = default;

  virtual const TargetApp& targetApp() const = 0;
  virtual void playPause() = 0;
  virtual void nextTrack() = 0;
  virtual void previousTrack() = 0;
};

}  // namespace talmo
