#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/linux/input/LinuxEventTap.h"

namespace talmo {

/// Trust, which is whether the media keys can be had, and the windows on the X display of $DISPLAY,
/// which shows everyone's titles to everyone. Each question that needs the display has a connection
/// of its own; without a display there is no trust and there are no windows.
class LinuxAccessibility : public Accessibility {
 public:
  /// `eventTap` makes the program's taps and lives longer.
  explicit LinuxAccessibility(LinuxEventTap& eventTap) : eventTap_(eventTap) {}

  /// Where there is a tap, whether it has all of the keys. Otherwise whether one could have them
  /// now; what is in the way is logged when it was not before.
  bool isProcessTrusted() override;

  /// There is nobody to ask.
  bool isProcessTrustedWithPrompt(bool prompt) override;

  /// By _NET_WM_NAME, the window used last first.
  std::vector<std::string> windowTitles(ProcessIdentifier process) override;

 private:
  LinuxEventTap& eventTap_;
  // What was in the way when last asked. Main thread.
  std::optional<std::string> obstacle_;
};

}  // namespace talmo
