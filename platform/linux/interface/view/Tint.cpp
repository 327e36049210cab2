#include "platform/linux/interface/view/Tint.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace talmo {
namespace {

// A few hundred pixels tell as much as all of them.
constexpr int samplesPerSide = 24;
constexpr float lightness = 0.5F;
// The mean of many colours is duller than what is remembered.
constexpr float moreSaturation = 1.6F;
constexpr float mostSaturation = 0.75F;

}  // namespace

QColor tintOf(const Image& image) {
  std::array<double, 3> sum{};
  double weights = 0;
  const int stepX = std::max(1, image.width / samplesPerSide);
  const int stepY = std::max(1, image.height / samplesPerSide);
  for (int y = stepY / 2; y < image.height; y += stepY) {
    for (int x = stepX / 2; x < image.width; x += stepX) {
      const std::uint8_t* const pixel =
          image.pixels->data() +
          4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
               static_cast<std::size_t>(x));
      const auto [low, high] = std::minmax({pixel[0], pixel[1], pixel[2]});
      // Greys are remembered only where there is nothing else.
      const double weight = (1 + high - low) * pixel[3] / 255.0;
      for (std::size_t part = 0; part < sum.size(); ++part) sum[part] += weight * pixel[part];
      weights += weight;
    }
  }
  if (weights <= 0) return {};
  const auto channel = [&](std::size_t part) { return static_cast<int>(sum[part] / weights); };
  const QColor mean(channel(0), channel(1), channel(2));
  return QColor::fromHslF(std::max(0.0F, mean.hslHueF()),
                          std::min(mean.hslSaturationF() * moreSaturation, mostSaturation),
                          lightness);
}

}  // namespace talmo
