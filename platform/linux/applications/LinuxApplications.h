#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/KeyboardEvent.h"
#include "platform/linux/applications/LinuxApplication.h"
#include "platform/LocalPlayer.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// The one table of what the program's bundle identifiers are on Linux. Constant; any thread.
/// The pointers stay valid for the process.
class LinuxApplications {
 public:
  LinuxApplications() = delete;

  static const std::vector<LinuxApplication>& all();

  /// The application of that bundle identifier; nothing when Linux has none.
  static const LinuxApplication* withBundleID(std::string_view bundleID);

  /// The application with a window of that class (either half of WM_CLASS, in any case).
  static const LinuxApplication* withWindowClass(std::string_view windowClass);

  /// The application whose processes run a program of that path, of which the file name alone may
  /// be known.
  static const LinuxApplication* withExecutable(std::string_view executable);

  /// The processes that run a program of the application, oldest first, without their helpers.
  static std::vector<ProcessIdentifier> processes(const LinuxApplication& application);

  /// The scriptable players that exist on Linux only, in the order of the table.
  static std::vector<LocalPlayer> localPlayers();

  /// The keysym that the process takes in place of the key of `event`; nothing when the key is
  /// good as it is. Asks the process table, and the session bus for a player that runs under
  /// another program's name: at most a second, which only a bus that hangs takes.
  static std::optional<std::uint32_t> strokeException(const KeyboardEvent& event,
                                                      ProcessIdentifier process);
};

}  // namespace talmo
