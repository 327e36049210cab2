#pragma once

#include <functional>

#include "platform/linux/interface/view/Palette.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/Menu.h"

class QWidget;

namespace talmo {

/// What the parts of one content are drawn with; it outlives them. Main thread only.
struct Look {
  const Vectors& vectors;
  const Palette* palette;
  /// Shows a menu at a button.
  std::function<void(const Menu& menu, QWidget& button)> popUp;
};

}  // namespace talmo
