#pragma once

#import <AppKit/AppKit.h>
#include <optional>

#include "platform/StatusButton.h"

namespace talmo {

/// The button of an item of the menu bar, which has a window of this process for each item. Main
/// thread.
class MacStatusButton : public StatusButton {
 public:
  /// Without a button there is no place.
  explicit MacStatusButton(NSStatusBarButton* button) : button_(button) {}

  WindowIdentifier window() const override;
  std::optional<Rect> windowFrame() const override;
  Rect visibleFrame() const override;

  /// The item has gone.
  void detach() { button_ = nil; }

 private:
  __weak NSStatusBarButton* button_;
};

}  // namespace talmo
