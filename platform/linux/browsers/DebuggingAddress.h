#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace talmo {

/// Where a browser's remote debugging socket is on the loopback interface.
struct DebuggingAddress {
  std::uint16_t port = 0;
  /// The path of the WebSocket, another one at each start of the browser.
  std::string path;

  friend bool operator==(const DebuggingAddress&, const DebuggingAddress&) = default;
};

/// What the browser has noted in its profile; nothing when there is no such note or it is damaged.
/// The note outlives its browser, and its port may be somebody else's by now.
std::optional<DebuggingAddress> readDebuggingAddress(const std::filesystem::path& profile);

}  // namespace talmo
