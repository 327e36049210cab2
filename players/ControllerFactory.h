#pragma once

#include <memory>

#include "players/MusicAppController.h"

namespace talmo {

/// Makes the controller that a target's control method asks for.
class ControllerFactory {
 public:
  ControllerFactory() = delete;

  /// A new controller, never nothing.
  static std::shared_ptr<MusicAppController> controller(const TargetApp& app);
};

}  // namespace talmo
