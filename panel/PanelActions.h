#pragma once

#include <functional>
#include <string>

namespace talmo {

/// What the panel's views call back. Main thread.
struct PanelActions {
  /// A player's row was pressed.
  std::function<void(const std::string& id)> pressRow;
  /// The offer for that browser was taken.
  std::function<void(const std::string& bundleID)> allowBrowser;
  std::function<void()> dismissBrowserPrimer;
};

}  // namespace talmo
