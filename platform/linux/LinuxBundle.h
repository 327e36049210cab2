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
};

}  // namespace talmo
