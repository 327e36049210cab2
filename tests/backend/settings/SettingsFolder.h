#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace talmo::test {

/// A folder of the test's own for a settings file. It is removed when the object goes.
class SettingsFolder {
 public:
  SettingsFolder();
  ~SettingsFolder();
  SettingsFolder(const SettingsFolder&) = delete;
  SettingsFolder& operator=(const SettingsFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path file() const { return path_ / "settings.json"; }

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
  std::filesystem::path path_;
};

}  // namespace talmo::test
