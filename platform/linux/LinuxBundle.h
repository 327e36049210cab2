#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Bundle.h"

namespace talmo {

/// The files beside the program: a folder with `resources/<name>.<extension>` and `frameworks`.
class LinuxBundle : public Bundle {
 public:
  /// In the folder that the running program is in, or in another absolute one.
  explicit LinuxBundle(std::filesystem::path folder = folderOfTheProgram());

  /// The file URL of the running program.
  std::string url() const override { return url_; }
  /// None: no folder has one.
  std::optional<std::string> identifier() const override { return std::nullopt; }
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& extension) const override;
  std::optional<std::string> privateFrameworksPath() const override;
  /// None: a program on Linux has no such dictionary.
  std::optional<std::string> objectForInfoDictionaryKey(const std::string&) const override {
    return std::nullopt;
  }
  bool fileExists(const std::string& path) const override;

  static std::filesystem::path folderOfTheProgram();

 private:
  const std::filesystem::path folder_;
  // From the start, as the file may be replaced while it runs.
  const std::string url_;
};

}  // namespace talmo
