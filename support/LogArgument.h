#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>

namespace talmo {

/// One argument of a log line: a public string, a boolean or a whole number.
using LogArgument = std::variant<std::string_view, bool, std::int64_t>;

/// The conversion that an argument of this type must be written with.
enum class LogConversion { publicString, boolean, integer, longInteger };

template <class Argument>
consteval LogConversion logConversion() {
  using Plain = std::remove_cvref_t<Argument>;
  if constexpr (std::same_as<Plain, bool>) {
    return LogConversion::boolean;
  } else if constexpr (std::integral<Plain>) {
    return sizeof(Plain) <= sizeof(std::int32_t) ? LogConversion::integer
                                                 : LogConversion::longInteger;
  } else {
    static_assert(std::convertible_to<Argument, std::string_view>,
                  "a log argument is a string, a boolean or a whole number");
    return LogConversion::publicString;
  }
}

template <class Argument>
LogArgument logArgument(const Argument& argument) {
  if constexpr (std::same_as<Argument, bool>) {
    return argument;
  } else if constexpr (std::integral<Argument>) {
    return static_cast<std::int64_t>(argument);
  } else {
    return std::string_view(argument);
  }
}

}  // namespace talmo
