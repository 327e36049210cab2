#pragma once

#include <string>
#include <vector>

namespace talmo {

/// A browser's window and the tabs that it held when the browser was asked.
struct BrowserWindow {
  /// The browser's own name for the window, for as long as the window lives.
  std::string id;
  /// The browser's own names for its tabs, first to last as the window shows them.
  std::vector<std::string> tabs;

  friend bool operator==(const BrowserWindow&, const BrowserWindow&) = default;
};

}  // namespace talmo
