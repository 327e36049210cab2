#pragma once

#include <filesystem>

namespace talmo::test {

/// Whether somebody takes connections at the Unix socket `path`. The file is there a little before
/// that. Throws when the path is too long for a socket.
bool takesConnections(const std::filesystem::path& path);

}  // namespace talmo::test
