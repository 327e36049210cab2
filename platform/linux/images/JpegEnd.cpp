#include "platform/linux/images/JpegEnd.h"

#include <cstddef>
#include <cstdint>

namespace talmo {
namespace {

// ITU T.81, table B.1.
constexpr std::uint8_t temporary = 0x01;
constexpr std::uint8_t firstRestart = 0xD0;
constexpr std::uint8_t startOfImage = 0xD8;
constexpr std::uint8_t endOfImage = 0xD9;

}  // namespace

bool hasJpegEnd(std::string_view bytes) {
  const auto byteAt = [bytes](std::size_t index) {
    return static_cast<std::uint8_t>(bytes[index]);
  };
  // A segment says how long it is, so that a thumbnail's end marker in one is not taken for the
  // picture's. In compressed data, a marker's first byte is followed by 0 or a restart's number.
  std::size_t position = 0;
  while ((position = bytes.find('\xFF', position)) != std::string_view::npos) {
    if (position + 1 >= bytes.size()) return false;
    const std::uint8_t marker = byteAt(position + 1);
    if (marker == endOfImage) return true;
    if (marker == 0xFF) {
      ++position;  // a fill byte
      continue;
    }
    position += 2;
    if (marker <= temporary || (marker >= firstRestart && marker <= startOfImage)) continue;
    if (position + 1 >= bytes.size()) return false;
    position += static_cast<std::size_t>(byteAt(position) << 8 | byteAt(position + 1));
  }
  return false;
}

}  // namespace talmo
