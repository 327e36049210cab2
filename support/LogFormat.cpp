#include "support/LogFormat.h"

#include <cstdint>
#include <variant>

namespace talmo {
namespace {

void append(std::string& line, const LogArgument& argument) {
  if (const auto* string = std::get_if<std::string_view>(&argument)) {
    line += *string;
  } else if (const auto* boolean = std::get_if<bool>(&argument)) {
    line += *boolean ? "true" : "false";
  } else {
    line += std::to_string(std::get<std::int64_t>(argument));
  }
}

}  // namespace

std::string renderLogLine(std::string_view format, std::span<const LogArgument> arguments) {
  std::string line;
  std::size_t next = 0;
  while (!format.empty()) {
    const std::size_t percent = format.find('%');
    line += format.substr(0, percent);
    if (percent == std::string_view::npos) break;
    format.remove_prefix(percent + 1);
    if (format.starts_with('%')) {
      line += '%';
      format.remove_prefix(1);
      continue;
    }
    append(line, arguments[next++]);
    // Every conversion ends with its first `s` or `d` outside braces.
    if (format.starts_with('{')) format.remove_prefix(format.find('}') + 1);
    format.remove_prefix(format.find_first_of("sd") + 1);
  }
  return line;
}

}  // namespace talmo
