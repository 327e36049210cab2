#pragma once

#include <filesystem>
#include <string>

namespace talmo {

/// What to start for an executable's path: in the bundle's folder where the path is that of a
/// program of the Mac that Linux lacks and Talmo brings, and else that path itself.
std::string executableToStart(const std::string& path, const std::filesystem::path& bundleFolder);

}  // namespace talmo
