#pragma once

#include "platform/View.h"

namespace talmo {

/// The button with the options. Its menu reads the settings when it drops down. Main thread.
View gearMenuButton();

}  // namespace talmo
