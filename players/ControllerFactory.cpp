#include "players/ControllerFactory.h"

#include <variant>

#include "players/KeystrokeController.h"
#include "players/ScriptingBridgeController.h"

namespace talmo {

std::shared_ptr<MusicAppController> ControllerFactory::controller(const TargetApp& app) {
  if (const auto* keyMap = std::get_if<KeyMap>(&app.method)) {
    return std::make_shared<KeystrokeController>(app, *keyMap);
  }
  if (std::holds_alternative<ScriptingBridge>(app.method)) {
    return std::make_shared<ScriptingBridgeController>(app);
  }
  return nullptr;
}

}  // namespace talmo
