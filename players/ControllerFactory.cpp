#include "players/ControllerFactory.h"

#include <variant>

#include "players/KeystrokeController.h"
#include "players/ScriptingBridgeController.h"
#include "web/WebPlayerController.h"

namespace talmo {

std::shared_ptr<MusicAppController> ControllerFactory::controller(const TargetApp& app) {
  if (const auto* keyMap = std::get_if<KeyMap>(&app.method)) {
    return std::make_shared<KeystrokeController>(app, *keyMap);
  }
  if (const auto* target = std::get_if<WebPlayerTarget>(&app.method)) {
    return std::make_shared<WebPlayerController>(app, *target);
  }
  return std::make_shared<ScriptingBridgeController>(app);
}

}  // namespace talmo
