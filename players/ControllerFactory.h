#pragma once

#include <memory>

#include "players/MusicAppController.h"

namespace talmo {

/// Makes the controller that a target's control method asks for.
class ControllerFactory {
 public:
  ControllerFactory() = delete;

  /// A new controller; nothing for a web target, which no controller drives yet.
  static std::shared_ptr<MusicAppController> controller(const TargetApp& app);
};

}  // namespace talmo
