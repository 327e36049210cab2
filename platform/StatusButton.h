#pragma once

#include <optional>

#include "platform/Rect.h"
#include "platform/WindowIdentifier.h"

namespace talmo {

/// The button of a status item, as what a panel hangs from. Main thread only.
class StatusButton {
 public:
  virtual ~StatusButton() = default;

  /// The window that it is in.
  virtual WindowIdentifier window() const = 0;

  /// That window's place; nothing while the system shows none.
  virtual std::optional<Rect> windowFrame() const = 0;

  /// What menus, bars and docks leave of the screen that the window is on, or of the main screen
  /// when it is on none.
  virtual Rect visibleFrame() const = 0;
};

}  // namespace talmo
