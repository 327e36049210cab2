#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "support/LogArgument.h"

namespace talmo {

/// The format text of a log line, in the unified log's notation: "%{public}s" for a string,
/// "%{bool}d" for a boolean, "%d" and "%ld" for whole numbers of up to 32 and of 64 bits, "%%" for
/// a per cent sign. The constructor runs at compile time, and a text that does not fit `Arguments`
/// in number, order and kind does not compile.
template <class... Arguments>
class LogFormat {
 public:
  // Implicit, so that a call site writes nothing but the text.
  consteval LogFormat(const char* text) : text_(text) {  // NOLINT(google-explicit-constructor)
    constexpr std::size_t count = sizeof...(Arguments);
    constexpr std::array<LogConversion, count> expected{logConversion<Arguments>()...};
    std::size_t found = 0;
    std::string_view rest = text_;
    while (true) {
      const std::size_t percent = rest.find('%');
      if (percent == std::string_view::npos) break;
      rest.remove_prefix(percent);
      if (rest.starts_with("%%")) {
        rest.remove_prefix(2);
        continue;
      }
      if (found == count) throw "more conversions than arguments";
      const std::string_view conversion = spelling(expected[found]);
      if (!rest.starts_with(conversion)) throw "a conversion does not fit its argument";
      rest.remove_prefix(conversion.size());
      ++found;
    }
    if (found != count) throw "more arguments than conversions";
  }

  constexpr std::string_view text() const { return text_; }

 private:
  static consteval std::string_view spelling(LogConversion conversion) {
    switch (conversion) {
      case LogConversion::publicString:
        return "%{public}s";
      case LogConversion::boolean:
        return "%{bool}d";
      case LogConversion::integer:
        return "%d";
      case LogConversion::longInteger:
        return "%ld";
    }
    throw "no such conversion";
  }

  std::string_view text_;
};

/// The finished line: `format` with its conversions replaced by `arguments`, in order. `format` has
/// been checked against them by `LogFormat`.
std::string renderLogLine(std::string_view format, std::span<const LogArgument> arguments);

}  // namespace talmo
