#pragma once

namespace talmo {

/// Whether the person's session starts the program, as a switch. Main thread.
class LaunchAtLogin {
 public:
  LaunchAtLogin() = delete;

  /// Asked of the system at every call.
  static bool isEnabled();

  /// A failure is logged and changes nothing; whoever shows the state asks for it again.
  static void toggle();
};

}  // namespace talmo
