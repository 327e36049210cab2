#pragma once

#include <string>
#include <vector>

#include "platform/Accessibility.h"

namespace talmo {

/// The windows on the X display of $DISPLAY, which shows everyone's titles to everyone. Each
/// question has a connection of its own; without a display there are no windows.
class LinuxAccessibility : public Accessibility {
 public:
  /// By _NET_WM_NAME, the window used last first.
  std::vector<std::string> windowTitles(ProcessIdentifier process) override;
};

}  // namespace talmo
