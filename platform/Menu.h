#pragma once

#include <functional>
#include <vector>

#include "platform/MenuItem.h"

namespace talmo {

/// A menu, as it is when it drops down.
struct Menu {
  std::vector<MenuItem> items;
  /// Called on the main thread when it has closed, before what was chosen is done; may be empty.
  std::function<void()> didClose;
};

}  // namespace talmo
