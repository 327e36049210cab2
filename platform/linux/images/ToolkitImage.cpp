#include "platform/linux/images/ToolkitImage.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <QImage>
#include <utility>
#include <vector>

namespace talmo {

std::optional<Image> fromToolkit(QImage picture) {
  picture = std::move(picture).convertToFormat(QImage::Format_RGBA8888);
  if (picture.isNull()) return std::nullopt;

  const std::size_t row = static_cast<std::size_t>(picture.width()) * 4;
  auto pixels =
      std::make_shared<std::vector<std::uint8_t>>(row * static_cast<std::size_t>(picture.height()));
  for (int y = 0; y < picture.height(); ++y) {
    std::memcpy(pixels->data() + row * static_cast<std::size_t>(y), picture.constScanLine(y), row);
  }
  return Image{.width = picture.width(), .height = picture.height(), .pixels = std::move(pixels)};
}

}  // namespace talmo
