#include "tests/backend/interface/view/Pixels.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace talmo::test {

Image imageOf(const QImage& picture) {
  const QImage converted = picture.convertToFormat(QImage::Format_RGBA8888);
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(
      converted.constBits(), converted.constBits() + converted.sizeInBytes());
  return {.width = converted.width(), .height = converted.height(), .pixels = std::move(pixels)};
}

}  // namespace talmo::test
