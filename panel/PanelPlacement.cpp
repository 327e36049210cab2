#include "panel/PanelPlacement.h"

#include <algorithm>

namespace talmo {
namespace {

constexpr double gap = 1;

}  // namespace

Rect panelFrame(const StatusButton& button, Size size) {
  const Rect visible = button.visibleFrame();
  // An icon without extent at the corner, for want of one.
  const Rect icon = button.windowFrame().value_or(Rect{.x = visible.maxX(), .y = visible.maxY()});
  const double height = std::min(size.height, visible.height);
  const double x = std::max(icon.midX() - 0.5 * size.width, visible.x);
  const double y = icon.y - gap - height;
  return {.x = std::min(x, visible.maxX() - size.width),
          .y = std::max(y, visible.y),
          .width = size.width,
          .height = height};
}

}  // namespace talmo
