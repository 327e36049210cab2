#pragma once

#include <string>
#include <vector>

#include "platform/linux/osascript/BrowserWindow.h"

namespace talmo {

/// A browser's window with the titles of its tabs, in the tabs' order.
struct TitledWindow {
  BrowserWindow window;
  std::vector<std::string> titles;
};

/// The browser's windows in the order of their names on the display, `names`: such a name begins
/// with the title of the tab that the window shows. Windows whose name is not found come last, in
/// the order in which they were given.
std::vector<BrowserWindow> inOrderOfNames(std::vector<TitledWindow> windows,
                                          const std::vector<std::string>& names);

}  // namespace talmo
