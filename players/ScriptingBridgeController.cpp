#include "players/ScriptingBridgeController.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("scripting-bridge");
constexpr long timeoutTicks = 120;  // two seconds

}  // namespace

ScriptingBridgeController::ScriptingBridgeController(TargetApp targetApp)
    : targetApp_(std::move(targetApp)) {}

void ScriptingBridgeController::playPause() {
  send("playpause");
}

void ScriptingBridgeController::nextTrack() {
  send("nextTrack");
}

void ScriptingBridgeController::previousTrack() {
  send("previousTrack");
}

void ScriptingBridgeController::send(std::string_view selector) {
  const std::string& player = targetApp_.displayName;
  if (!targetApp_.runningApplication()) {
    log.info("%{public}s not running; ignoring key", player);
    return;
  }
  const std::optional<AutomationStatus> consent =
      AutomationPermission::cachedStatus(targetApp_.bundleID);
  if (consent == AutomationStatus::denied) {
    log.info("Automation denied for %{public}s; skipping send", player);
    return;
  }
  const std::unique_ptr<ScriptingObject> application =
      platform().appleEvents().application(targetApp_.bundleID);
  if (!application) {
    log.notice("SBApplication init failed for %{public}s", player);
    return;
  }
  application->setTimeout(timeoutTicks);
  if (application->respondsTo(selector)) application->send(selector);
  if (const std::optional<std::string> error = application->lastError()) {
    log.notice("Apple Event to %{public}s failed: %{public}s", player, *error);
  } else {
    log.info("Sent command to %{public}s", player);
  }
  // The send may have brought up the system's question: the next query must see its answer.
  if (consent != AutomationStatus::granted) AutomationPermission::invalidate(targetApp_.bundleID);
}

}  // namespace talmo
