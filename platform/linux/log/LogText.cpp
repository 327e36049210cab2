#include "platform/linux/log/LogText.h"

namespace talmo {

std::string_view cutToBytes(std::string_view text, std::size_t limit) {
  if (text.size() <= limit) return text;
  // Every byte of a character but the first is 10xxxxxx.
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U) --limit;
  return text.substr(0, limit);
}

}  // namespace talmo
