#include "platform/macos/interface/MacWindows.h"

#include <cassert>

#include "platform/macos/interface/MacWindow.h"

namespace talmo {

std::unique_ptr<Window> MacWindows::makeWindow(const WindowParameters& parameters) {
  assert(NSThread.isMainThread);
  return std::make_unique<MacWindow>(parameters);
}

}  // namespace talmo
