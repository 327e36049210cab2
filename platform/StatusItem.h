#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/Menu.h"
#include "platform/StatusButton.h"
#include "platform/StatusImage.h"

namespace talmo {

/// The program's place in the bar of status items; it leaves the bar when it is destroyed. Main
/// thread only.
class StatusItem {
 public:
  virtual ~StatusItem() = default;

  /// The button, which lives as long as the item; hold it weakly.
  virtual std::shared_ptr<StatusButton> button() = 0;

  virtual void setImage(const StatusImage& image) = 0;

  /// From 0, not to be seen, to 1.
  virtual void setAlpha(double alpha) = 0;

  /// Events of `mask` on the button call `action`, during which they are the application's current
  /// event, unless a menu is attached: that drops down instead.
  virtual void setAction(std::uint64_t mask, std::function<void()> action) = 0;

  /// Attaches a menu, or detaches it.
  virtual void setMenu(std::optional<Menu> menu) = 0;

  /// As if the button was clicked. Returns when an attached menu that drops down by it has closed,
  /// or at once, as the system does.
  virtual void performClick() = 0;
};

}  // namespace talmo
