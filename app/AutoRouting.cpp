// The part of the coordinator that finds a player for each key press in auto mode. Everything here
// runs on the command queue.

#include <optional>
#include <string>

#include "app/AppCoordinator.h"
#include "platform/Platform.h"
#include "players/TargetAppRegistry.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("coordinator");

}  // namespace

std::shared_ptr<MusicAppController> AppCoordinator::autoController() {
  // No source tells yet what is playing.
  log.info("auto: nothing resolved");
  return nullptr;
}

void AppCoordinator::launchDefaultPlayer() {
  const std::optional<std::string> id = TargetAppRegistry::defaultInstalledID();
  if (!id) return;
  const std::optional<TargetApp> app = TargetAppRegistry::app(*id);
  if (!app) return;
  if (const std::optional<std::string> url = app->applicationURL()) {
    log.info("auto: nothing playing, launching %{public}s", app->displayName);
    platform().workspace().openApplication(*url);
  }
}

}  // namespace talmo
