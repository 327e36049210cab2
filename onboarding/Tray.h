#pragma once

#include <vector>

#include "panel/ViewParts.h"

namespace talmo {

/// The buttons of a step, from the way around it to the one that is wanted pressed.
inline View tray(std::vector<View> buttons) {
  return horizontalView("tray", ViewRole::tray, std::move(buttons));
}

}  // namespace talmo
