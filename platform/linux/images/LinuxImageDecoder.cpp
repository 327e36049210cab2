#include "platform/linux/images/LinuxImageDecoder.h"

#include <array>
#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QLoggingCategory>
#include <QSize>
#include <utility>

#include "platform/linux/images/JpegEnd.h"
#include "platform/linux/images/ToolkitImage.h"

namespace talmo {
namespace {

using namespace std::string_view_literals;

// What Qt may take for one picture, in MB: `mostPixels` of four bytes each, or fewer of more.
constexpr int allocationLimit = 48;

struct Kind {
  /// What its files begin with, and what follows `gap` bytes later.
  std::string_view start;
  std::size_t gap;
  std::string_view further;
  const char* format;
};

// Only these are ever read: the toolkit knows many more, which no artwork comes in and each of
// which is one more parser for bytes from anywhere.
constexpr std::array kinds{
    Kind{"\x89PNG\r\n\x1A\n"sv, 0, ""sv, "png"},  // PNG, section 5.2
    Kind{"\xFF\xD8\xFF"sv, 0, ""sv, "jpeg"},      // ITU T.81, B.1.1.3: SOI, then a marker
    Kind{"GIF87a"sv, 0, ""sv, "gif"},             // GIF89a, section 17
    Kind{"GIF89a"sv, 0, ""sv, "gif"},
    Kind{"RIFF"sv, 4, "WEBP"sv, "webp"},  // RFC 9649, section 2.4
};

const char* formatOf(std::string_view bytes) {
  for (const Kind& kind : kinds) {
    const std::size_t further = kind.start.size() + kind.gap;
    if (bytes.starts_with(kind.start) && bytes.size() >= further &&
        bytes.substr(further).starts_with(kind.further)) {
      return kind.format;
    }
  }
  return nullptr;
}

bool isSensible(const QSize& size) {
  return size.width() >= 1 && size.height() >= 1 &&
         size.width() <= LinuxImageDecoder::largestSide &&
         size.height() <= LinuxImageDecoder::largestSide &&
         static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) <=
             LinuxImageDecoder::mostPixels;
}

}  // namespace

LinuxImageDecoder::LinuxImageDecoder() {
  QImageReader::setAllocationLimit(allocationLimit);
  // They tell standard error about every broken file. libpng's own line cannot be switched off.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
}

std::optional<Image> LinuxImageDecoder::decode(std::string_view bytes) {
  if (bytes.size() > largestFile) return std::nullopt;
  const char* format = formatOf(bytes);
  if (format == nullptr) return std::nullopt;
  // Qt gives what is there of a JPEG that was cut off, the rest in grey.
  if (format == "jpeg"sv && !hasJpegEnd(bytes)) return std::nullopt;

  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer file(&data);
  file.open(QIODevice::ReadOnly);
  QImageReader reader(&file, format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  // From the header, before there is memory for any pixel.
  if (!isSensible(reader.size())) return std::nullopt;
  QImage picture = reader.read();
  if (picture.isNull() || !isSensible(picture.size())) return std::nullopt;
  return fromToolkit(std::move(picture));
}

}  // namespace talmo
