#pragma once

#include "platform/View.h"

namespace talmo {

/// A picture of the row in the system's settings, with the switch that the person is to flip.
View settingsToggleMock(bool isOn);

}  // namespace talmo
