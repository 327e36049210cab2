#pragma once

#include "panel/ViewParts.h"

namespace talmo {

/// Says that what is shown plays.
inline View playbackChip() {
  return horizontalView("chip", ViewRole::chip, {textView("text", ViewRole::label, "Playing")});
}

}  // namespace talmo
