#pragma once

#include <filesystem>
#include <string>

namespace talmo {

/// What to start for an executable's path: in the bundle's folder where the path is that of a
/// program of the Mac for which Talmo brings one of its own, as Linux lacks it or has one that does
/// more than is wanted, and else that path itself.
std::string executableToStart(const std::string& path, const std::filesystem::path& bundleFolder);

}  // namespace talmo
