#include "adapter/CommandLine.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace talmo {
namespace {

std::optional<int> commandNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (text.starts_with('-')) return std::nullopt;
  return number;
}

}  // namespace

std::optional<CommandLine> CommandLine::parse(std::span<const std::string> arguments) {
  if (arguments.empty()) return std::nullopt;
  const std::string& name = arguments[0];
  const auto options = arguments.subspan(1);
  if (name == "stream" && options.empty()) return CommandLine{.run = Run::stream};
  if (name == "get" && options.empty()) return CommandLine{.run = Run::get};
  if (name == "get" && options.size() == 1 && options[0] == "--no-artwork") {
    return CommandLine{.run = Run::get, .wantsArtwork = false};
  }
  if (name == "send" && options.size() == 1) {
    if (const auto command = commandNumber(options[0])) {
      return CommandLine{.run = Run::send, .command = *command};
    }
  }
  return std::nullopt;
}

}  // namespace talmo
