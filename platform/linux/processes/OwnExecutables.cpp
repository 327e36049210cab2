#include "platform/linux/processes/OwnExecutables.h"

#include <array>
#include <string_view>

namespace talmo {
namespace {

struct OwnExecutable {
  std::string_view path;
  /// From the bundle's folder.
  std::string_view replacement;
};

constexpr std::array<OwnExecutable, 2> ownExecutables{{
    {"/usr/bin/osascript", "libexec/osascript"},
    {"/usr/bin/pkill", "libexec/pkill"},
}};

}  // namespace

std::string executableToStart(const std::string& path, const std::filesystem::path& bundleFolder) {
  for (const OwnExecutable& own : ownExecutables) {
    if (own.path == path) return (bundleFolder / own.replacement).string();
  }
  return path;
}

}  // namespace talmo
