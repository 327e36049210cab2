#pragma once

#include <cstdint>

namespace talmo {

/// The number that the system's interfaces write as four characters: `fourCharacterCode("kPSP")`.
constexpr std::uint32_t fourCharacterCode(const char (&text)[5]) {
  std::uint32_t code = 0;
  for (int index = 0; index < 4; ++index) {
    code = (code << 8) | static_cast<std::uint8_t>(text[index]);
  }
  return code;
}

}  // namespace talmo
