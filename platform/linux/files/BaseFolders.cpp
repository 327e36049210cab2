#include "platform/linux/files/BaseFolders.h"

#include <cstdlib>

#include <glib.h>

namespace talmo {
namespace {

std::filesystem::path folder(const char* variable, const char* otherwise) {
  const char* const value = std::getenv(variable);
  std::filesystem::path path = value != nullptr ? value : "";
  if (path.is_absolute()) return path;
  return std::filesystem::path(::g_get_home_dir()) / otherwise;
}

}  // namespace

std::filesystem::path configHome() {
  return folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path stateHome() {
  return folder("XDG_STATE_HOME", ".local/state");
}

}  // namespace talmo
