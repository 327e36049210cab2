#include "platform/macos/images/ImageFile.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace talmo {
namespace {

using namespace std::string_view_literals;

/// Reads from the front. Whatever reads beyond the end gives nothing, and so does all that follows.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  bool isBroken() const { return isBroken_; }

  std::string_view take(std::size_t count) {
    if (count > rest_.size()) {
      isBroken_ = true;
      rest_ = {};
      return {};
    }
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  void skip(std::size_t count) { take(count); }

  bool takes(std::string_view expected) { return take(expected.size()) == expected; }

  std::uint8_t byte() {
    const std::string_view taken = take(1);
    return taken.empty() ? 0 : static_cast<std::uint8_t>(taken.front());
  }

  std::uint32_t bigEndian(int count) {
    std::uint32_t number = 0;
    for (int index = 0; index < count; ++index) number = number << 8U | byte();
    return number;
  }

  std::uint32_t littleEndian(int count) {
    std::uint32_t number = 0;
    for (int index = 0; index < count; ++index) {
      number |= static_cast<std::uint32_t>(byte()) << static_cast<unsigned>(8 * index);
    }
    return number;
  }

 private:
  std::string_view rest_;
  bool isBroken_ = false;
};

// PNG (Third Edition), section 5: a signature, then chunks of a length, a type, data and a check.
bool isWholePng(Reader reader) {
  if (!reader.takes("\x89PNG\r\n\x1A\n"sv)) return false;
  while (!reader.isBroken()) {
    const std::uint32_t length = reader.bigEndian(4);
    const std::string_view type = reader.take(4);
    reader.skip(length);
    reader.skip(4);
    if (type == "IEND"sv) return !reader.isBroken();
  }
  return false;
}

// ITU T.81, annex B: markers, most of which begin a segment that says how long it is. In compressed
// data, a marker's first byte is followed by 0 or by a restart's number.
bool isWholeJpeg(Reader reader) {
  constexpr std::uint8_t temporary = 0x01;
  constexpr std::uint8_t firstRestart = 0xD0;
  constexpr std::uint8_t startOfImage = 0xD8;
  constexpr std::uint8_t endOfImage = 0xD9;
  constexpr std::uint8_t markerStart = 0xFF;
  if (!reader.takes("\xFF\xD8\xFF"sv)) return false;
  bool isMarker = true;
  while (!reader.isBroken()) {
    const std::uint8_t byte = reader.byte();
    if (byte == markerStart) {
      isMarker = true;
      continue;
    }
    if (!isMarker) continue;
    isMarker = false;
    if (byte == endOfImage) return true;
    if (byte <= temporary || (byte >= firstRestart && byte <= startOfImage)) continue;
    const std::uint32_t length = reader.bigEndian(2);
    if (length < 2) return false;
    reader.skip(length - 2);
  }
  return false;
}

/// The sub-blocks of a GIF, up to the empty one.
void skipSubBlocks(Reader& reader) {
  while (const std::uint8_t length = reader.byte()) reader.skip(length);
}

/// The bytes of the colour table that a GIF's flags tell of.
std::size_t colourTableLength(std::uint8_t flags) {
  return (flags & 0x80U) == 0 ? 0 : std::size_t{3} << ((flags & 0x07U) + 1);
}

// GIF89a, sections 17 to 22: a header, then extensions and pictures.
bool isWholeGif(Reader reader) {
  constexpr std::uint8_t extension = 0x21;
  constexpr std::uint8_t picture = 0x2C;
  const std::string_view signature = reader.take(6);
  if (signature != "GIF87a"sv && signature != "GIF89a"sv) return false;
  reader.skip(4);
  const std::uint8_t flags = reader.byte();
  reader.skip(2 + colourTableLength(flags));
  while (!reader.isBroken()) {
    const std::uint8_t kind = reader.byte();
    if (kind == extension) {
      reader.skip(1);
      skipSubBlocks(reader);
      continue;
    }
    if (kind != picture) return false;
    reader.skip(8);
    reader.skip(colourTableLength(reader.byte()));
    reader.skip(1);
    skipSubBlocks(reader);
    return !reader.isBroken();
  }
  return false;
}

// RFC 9649, section 2.4: a RIFF file says how much follows.
bool isWholeWebP(Reader reader) {
  if (!reader.takes("RIFF"sv)) return false;
  const std::uint32_t length = reader.littleEndian(4);
  Reader content(reader.take(length));
  return !reader.isBroken() && content.takes("WEBP"sv);
}

}  // namespace

bool isWholeImageFile(std::string_view bytes) {
  const Reader reader(bytes);
  return isWholePng(reader) || isWholeJpeg(reader) || isWholeGif(reader) || isWholeWebP(reader);
}

}  // namespace talmo
