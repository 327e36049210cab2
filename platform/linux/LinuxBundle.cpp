#include "platform/linux/LinuxBundle.h"

#include <system_error>
#include <utility>

namespace talmo {

LinuxBundle::LinuxBundle(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::filesystem::path LinuxBundle::folderOfTheProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::optional<std::string> LinuxBundle::resourcePath(const std::string& name,
                                                     const std::string& extension) const {
  std::string path = (folder_ / "resources" / (name + "." + extension)).string();
  if (!fileExists(path)) return std::nullopt;
  return path;
}

std::optional<std::string> LinuxBundle::privateFrameworksPath() const {
  std::string path = (folder_ / "frameworks").string();
  if (!fileExists(path)) return std::nullopt;
  return path;
}

bool LinuxBundle::fileExists(const std::string& path) const {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

}  // namespace talmo
