#pragma once

#include <functional>
#include <string>

namespace talmo {

/// One line of a menu.
struct MenuItem {
  /// Empty for a separator.
  std::string title;
  /// Called on the main thread when it is chosen.
  std::function<void()> action;
  /// The letter that chooses it together with the command key; empty for none.
  std::string keyEquivalent;
  bool isChecked = false;

  bool isSeparator() const { return title.empty(); }
};

}  // namespace talmo
