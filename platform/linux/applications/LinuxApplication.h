#pragma once

#include <string_view>
#include <vector>

#include "platform/linux/applications/StrokeException.h"

namespace talmo {

/// What an application that the program knows by its bundle identifier is on Linux. Each list is
/// in order of preference, and an empty one means that there is no such thing.
struct LinuxApplication {
  std::string_view bundleID;
  /// The name to show where no desktop entry gives one.
  std::string_view displayName;
  /// Set for a player that exists on Linux only: its id as a target.
  std::string_view localPlayerID;
  /// The desktop entries of its packages, without ".desktop".
  std::vector<std::string_view> desktopIDs;
  /// What follows "org.mpris.MediaPlayer2." in the bus names of the instances; a further
  /// ".instance..." belongs to it too.
  std::vector<std::string_view> playerNames;
  /// The same for an application that is no player to be commanded, but shows the media session of
  /// what plays in it: a browser.
  std::vector<std::string_view> sessionNames;
  /// File names of the programs that its processes run; with the folder in front where the programs
  /// of several applications have the same.
  std::vector<std::string_view> executables;
  /// For a browser with a remote debugging socket: where each of the executables keeps its profile,
  /// below the config folder.
  std::vector<std::string_view> profileFolders;
  /// Both halves of WM_CLASS, in lower case.
  std::vector<std::string_view> windowClasses;
  std::vector<StrokeException> strokeExceptions;
};

}  // namespace talmo
