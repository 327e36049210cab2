#include "players/KeystrokeController.h"

#include <optional>
#include <utility>

#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("keystrokes");

}  // namespace

KeystrokeController::KeystrokeController(TargetApp targetApp, KeyMap keyMap)
    : targetApp_(std::move(targetApp)), keyMap_(keyMap) {}

void KeystrokeController::playPause() {
  post(keyMap_.playPause);
}

void KeystrokeController::nextTrack() {
  post(keyMap_.next);
}

void KeystrokeController::previousTrack() {
  post(keyMap_.previous);
}

void KeystrokeController::postKeyStroke(const KeyStroke& stroke, ProcessIdentifier pid) {
  KeyEvents& keyEvents = platform().keyEvents();
  for (const bool isKeyDown : {true, false}) {
    keyEvents.post({.keyCode = stroke.keyCode, .isKeyDown = isKeyDown, .flags = stroke.flags}, pid);
  }
}

void KeystrokeController::post(const KeyStroke& stroke) {
  const std::optional<RunningApplication> application = targetApp_.runningApplication();
  if (!application) {
    log.info("%{public}s not running; ignoring key", targetApp_.displayName);
    return;
  }
  postKeyStroke(stroke, application->processIdentifier);
}

}  // namespace talmo
