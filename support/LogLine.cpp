#include "support/LogLine.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

/// A control character at the beginning of some text.
struct Control {
  std::uint32_t character = 0;
  /// In bytes; 0 when there is none.
  std::size_t length = 0;
};

Control controlAtBeginning(std::string_view text) {
  const auto byte = [text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  if (byte(0) < 0x20 || byte(0) == 0x7F) return {.character = byte(0), .length = 1};
  // U+0080 to U+009F.
  if (byte(0) == 0xC2 && byte(1) < 0xA0) return {.character = byte(1), .length = 2};
  // U+2028 and U+2029, the ends of a line and of a paragraph.
  if (text.starts_with("\xE2\x80\xA8")) return {.character = 0x2028, .length = 3};
  if (text.starts_with("\xE2\x80\xA9")) return {.character = 0x2029, .length = 3};
  return {};
}

std::string escaped(std::uint32_t character) {
  if (character == '\n') return "\\n";
  if (character == '\r') return "\\r";
  if (character == '\t') return "\\t";
  std::array<char, 16> buffer{};
  std::snprintf(buffer.data(), buffer.size(), character < 0x80 ? "\\x%02x" : "\\u%04x", character);
  return buffer.data();
}

}  // namespace

std::string oneLogLine(std::string_view text) {
  const std::string valid = UnicodeText::repaired(text);
  std::string line;
  line.reserve(valid.size());
  for (std::string_view rest = valid; !rest.empty();) {
    const Control control = controlAtBeginning(rest);
    if (control.length != 0) {
      line += escaped(control.character);
      rest.remove_prefix(control.length);
    } else {
      line += rest.front();
      rest.remove_prefix(1);
    }
  }
  return line;
}

}  // namespace talmo
