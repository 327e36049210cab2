#include "tests/backend/images/ImageFiles.h"

#include <array>
#include <functional>
#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QImageWriter>
#include <stdexcept>
#include <string_view>

namespace talmo::test {
namespace {

using namespace std::string_literals;

std::string bigEndian(std::uint32_t value) {
  return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
          static_cast<char>(value >> 8), static_cast<char>(value)};
}

/// PNG, annex D: the check of a chunk.
std::uint32_t crc(std::string_view bytes) {
  std::uint32_t value = ~0U;
  for (const char byte : bytes) {
    value ^= static_cast<std::uint8_t>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      value = (value & 1) != 0 ? 0xEDB88320U ^ (value >> 1) : value >> 1;
    }
  }
  return ~value;
}

std::string chunk(const std::string& type, const std::string& data) {
  return bigEndian(static_cast<std::uint32_t>(data.size())) + type + data +
         bigEndian(crc(type + data));
}

}  // namespace

QImage picture(int width, int height, const std::string& name) {
  const int shift = static_cast<int>(std::hash<std::string>()(name) % 200);
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.setPixelColor(x, y, QColor((x * 7 + shift) % 256, (y * 5) % 256, (x * y) % 256));
    }
  }
  return image;
}

std::string imageFile(const QImage& picture, const char* format) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  if (!QImageWriter(&file, format).write(picture)) throw std::runtime_error("no such format");
  return file.data().toStdString();
}

std::string emptyPng(std::uint32_t width, std::uint32_t height) {
  // Eight bits each of red, green and blue.
  return "\x89PNG\r\n\x1A\n" +
         chunk("IHDR", bigEndian(width) + bigEndian(height) + "\x08\x02\0\0\0"s) +
         chunk("IEND", "");
}

std::string withOrientation(const std::string& jpeg, std::uint8_t orientation) {
  // A TIFF directory of one entry, in Motorola's order: tag 0x0112, type SHORT, one value.
  const std::string exif = "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0"s +
                           static_cast<char>(orientation) + "\0\0\0\0\0\0"s;
  const std::size_t length = exif.size() + 2;
  return jpeg.substr(0, 2) + "\xFF\xE1" + static_cast<char>(length >> 8) +
         static_cast<char>(length) + exif + jpeg.substr(2);
}

std::string smallGif(bool isAnimated) {
  // Four colours: red, green, blue, white. Each picture is LZW of codes of three bits.
  std::string file =
      "GIF89a\x02\0\x01\0\x81\0\0"s
      "\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF"s;
  const std::string descriptor = ",\0\0\0\0\x02\0\x01\0\0"s;
  // Clear, 0, 1, end; and clear, 2, 2, end.
  file += descriptor + "\x02\x02\x44\x0A\0"s;
  if (isAnimated) file += descriptor + "\x02\x02\x94\x0A\0"s;
  return file + ";";
}

}  // namespace talmo::test
