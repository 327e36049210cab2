#include "platform/linux/LinuxBundle.h"

#include <system_error>
#include <utility>

#include "platform/linux/applications/GlibHandles.h"

namespace talmo {
namespace {

std::filesystem::path program() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::string fileURL(const std::filesystem::path& path) {
  const GlibText url(g_filename_to_uri(path.c_str(), nullptr, nullptr));
  return url ? url.get() : std::string();
}

}  // namespace

LinuxBundle::LinuxBundle(std::filesystem::path folder)
    : folder_(std::move(folder)), url_(fileURL(program())) {}

std::filesystem::path LinuxBundle::folderOfTheProgram() {
  return program().parent_path();
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
