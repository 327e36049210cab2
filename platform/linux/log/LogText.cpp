#include "platform/linux/log/LogText.h"

#include <array>
#include <cstdio>

#include <glib.h>

#include "platform/linux/applications/GlibHandles.h"

namespace talmo {
namespace {

std::string escaped(gunichar character) {
  switch (character) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      std::array<char, 16> buffer{};
      std::snprintf(buffer.data(), buffer.size(), character < 0x80 ? "\\x%02x" : "\\u%04x",
                    character);
      return buffer.data();
  }
}

bool needsEscape(gunichar character) {
  return g_unichar_iscntrl(character) != 0 || character == 0x2028 || character == 0x2029;
}

}  // namespace

std::string oneLogLine(std::string_view text) {
  const GlibText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  std::string line;
  line.reserve(text.size());
  const char* next = valid.get();
  while (*next != '\0') {
    const char* const here = next;
    const gunichar character = g_utf8_get_char(here);
    next = g_utf8_next_char(here);
    if (needsEscape(character)) {
      line += escaped(character);
    } else {
      line.append(here, next);
    }
  }
  return line;
}

std::string_view cutToBytes(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  // Every byte of a character but the first is 10xxxxxx.
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U) --limit;
  return text.substr(0, limit);
}

}  // namespace talmo
