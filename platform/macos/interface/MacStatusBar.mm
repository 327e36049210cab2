#include "platform/macos/interface/MacStatusBar.h"

#include <cassert>

#include "platform/macos/interface/MacStatusItem.h"

namespace talmo {

std::unique_ptr<StatusItem> MacStatusBar::makeStatusItem(double length) {
  assert(NSThread.isMainThread);
  return std::make_unique<MacStatusItem>(
      [[NSStatusBar systemStatusBar] statusItemWithLength:length]);
}

}  // namespace talmo
