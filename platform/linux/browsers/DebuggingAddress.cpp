#include "platform/linux/browsers/DebuggingAddress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <string_view>

namespace talmo {
namespace {

// Chromium's content/public/browser/devtools_agent_host.h and what it writes there: the port in
// the first line, the path in the second.
constexpr const char* fileName = "DevToolsActivePort";

// Far more than both lines have.
constexpr std::size_t longestNote = 1024;

bool isVisible(char letter) {
  return letter > ' ' && letter <= '~';
}

}  // namespace

std::optional<DebuggingAddress> readDebuggingAddress(const std::filesystem::path& profile) {
  // The profile is the person's own, but a browser that crashed may have left anything there.
  std::error_code error;
  if (!std::filesystem::is_regular_file(profile / fileName, error)) return std::nullopt;
  std::ifstream file(profile / fileName, std::ios::binary);
  std::array<char, longestNote> bytes{};
  file.read(bytes.data(), bytes.size());
  const std::string_view text(bytes.data(), static_cast<std::size_t>(file.gcount()));
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view port = text.substr(0, end);
  std::string_view path = text.substr(end + 1);
  path = path.substr(0, path.find('\n'));

  DebuggingAddress address{.path = std::string(path)};
  const auto [stop, failure] =
      std::from_chars(port.data(), port.data() + port.size(), address.port);
  if (failure != std::errc() || stop != port.data() + port.size() || address.port == 0) {
    return std::nullopt;
  }
  if (!path.starts_with('/') || !std::ranges::all_of(path, isVisible)) return std::nullopt;
  return address;
}

}  // namespace talmo
