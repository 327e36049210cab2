#include "platform/macos/interface/view/EqualizerBar.h"

#include <cmath>
#include <numbers>

namespace talmo {

double EqualizerBar::stillHeight() const {
  return low + (high - low) * (1 - std::cos(2 * std::numbers::pi * phase)) / 2;
}

}  // namespace talmo
