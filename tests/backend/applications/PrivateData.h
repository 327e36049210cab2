#pragma once

#include <filesystem>
#include <string>

namespace talmo::test {

/// The data, configuration and state folders of this test program, in place of the person's and the
/// system's, with nothing installed. They are there before the first test starts, because GLib
/// reads their places once; the session bus and the display of the person are out of reach as well.
class PrivateData {
 public:
  PrivateData() = delete;

  /// $XDG_DATA_HOME, where "applications" is.
  static std::filesystem::path dataHome();

  /// $XDG_CONFIG_HOME.
  static std::filesystem::path configHome();

  /// $XDG_STATE_HOME.
  static std::filesystem::path stateHome();

  /// A folder for whatever else a test needs.
  static std::filesystem::path scratch();

  /// Empties all of them.
  static void clear();

  /// Writes the desktop entry and waits until it is there for GIO, which watches its folder. The
  /// lines follow "Type=Application".
  static void install(const std::string& id, const std::string& lines);

  static void uninstall(const std::string& id);

  /// A string in the notation of desktop entries' values, quoted as one argument of an Exec line.
  static std::string quoted(const std::string& argument);
};

}  // namespace talmo::test
