#pragma once

#include <array>
#include <string_view>
#include <type_traits>

#include "platform/LogLevel.h"
#include "support/LogArgument.h"
#include "support/LogFormat.h"

namespace talmo {

/// Writes a component's lines to the platform's log under the program's subsystem and the
/// component's category. Any thread; writing allocates.
class Logger {
 public:
  /// `category` is a literal.
  constexpr explicit Logger(std::string_view category) : category_(category) {}

  template <class... Arguments>
  void debug(std::type_identity_t<LogFormat<Arguments...>> format,
             const Arguments&... arguments) const {
    write(LogLevel::debug, format, arguments...);
  }

  template <class... Arguments>
  void info(std::type_identity_t<LogFormat<Arguments...>> format,
            const Arguments&... arguments) const {
    write(LogLevel::info, format, arguments...);
  }

  template <class... Arguments>
  void notice(std::type_identity_t<LogFormat<Arguments...>> format,
              const Arguments&... arguments) const {
    write(LogLevel::notice, format, arguments...);
  }

  template <class... Arguments>
  void error(std::type_identity_t<LogFormat<Arguments...>> format,
             const Arguments&... arguments) const {
    write(LogLevel::error, format, arguments...);
  }

 private:
  template <class... Arguments>
  void write(LogLevel level, LogFormat<Arguments...> format, const Arguments&... arguments) const {
    const std::array<LogArgument, sizeof...(Arguments)> list{logArgument(arguments)...};
    writeLine(level, renderLogLine(format.text(), list));
  }
  void writeLine(LogLevel level, std::string_view line) const;

  std::string_view category_;
};

}  // namespace talmo
