#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace talmo::test {

/// A folder of the test's own for a settings file. It is removed when the object goes.
class SettingsFolder {
 public:
  const std::filesystem::path& path() const { return folder_.path(); }
  std::filesystem::path file() const { return path() / "settings.json"; }

  /// Makes the settings file, or another one.
  void write(const std::string& content) const { write(file(), content); }
  static void write(const std::filesystem::path& file, const std::string& content);

  /// The content of the settings file, or of another one.
  std::string read() const { return read(file()); }
  static std::string read(const std::filesystem::path& file);

  /// The files that were put aside, in the order of their names.
  std::vector<std::filesystem::path> damaged() const;

  /// The names of everything in the folder, in order.
  std::vector<std::string> names() const;

 private:
  TemporaryFolder folder_;
};

}  // namespace talmo::test
