#pragma once

#include <functional>

#include "platform/linux/interface/view/Palette.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/Menu.h"
#include "platform/View.h"
#include "platform/ViewRole.h"

class QWidget;

namespace talmo {

class Part;

/// What the parts of one content are drawn with; it outlives them. Main thread only.
struct Look {
  const Vectors& vectors;
  const Palette* palette;
  /// Makes the part that shows a view, and its widget below `parent`, in a stack or button whose
  /// role is `container`.
  Part* (*makePart)(const View& view, ViewRole container, const Look& look, QWidget* parent);
  /// Shows a menu at a button.
  std::function<void(const Menu& menu, QWidget& button)> popUp;
};

}  // namespace talmo
