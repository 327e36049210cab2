#pragma once

#include <optional>

#include "platform/Rect.h"

namespace talmo {

/// The one screen of the simulated machine.
struct SimulatedScreen {
  /// Where the window of a status item's button is; nothing when the bar shows none.
  std::optional<Rect> buttonFrame = Rect{.x = 1000, .y = 876, .width = 28, .height = 24};
  /// What the bar leaves of it.
  Rect visibleFrame{.x = 0, .y = 0, .width = 1440, .height = 876};
};

}  // namespace talmo
