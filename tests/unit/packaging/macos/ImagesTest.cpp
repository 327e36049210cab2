#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Image.h"
#include "platform/linux/images/LinuxImageDecoder.h"

namespace talmo::test {
namespace {

const std::filesystem::path files = TALMO_PACKAGING_FILES;

std::optional<Image> picture(const std::string& name) {
  std::ifstream file(files / (name + ".png"), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return LinuxImageDecoder().decode(bytes);
}

struct Pixel {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
  std::uint8_t alpha;
};

Pixel pixel(const Image& image, int x, int y) {
  const std::size_t at = 4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) +
                              static_cast<std::size_t>(x));
  const std::vector<std::uint8_t>& pixels = *image.pixels;
  return {pixels[at], pixels[at + 1], pixels[at + 2], pixels[at + 3]};
}

/// Both resolutions are there, of the size in points, with nothing in the corners and something in
/// between.
void expectPair(const std::string& name, int side) {
  for (const int scale : {1, 2}) {
    SCOPED_TRACE(name + (scale == 1 ? "" : " at twice the resolution"));
    const std::optional<Image> image = picture(name + (scale == 1 ? "" : "@2x"));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, scale * side);
    EXPECT_EQ(image->height, scale * side);
    int solid = 0;
    for (int x = 0; x < image->width; ++x) {
      solid += pixel(*image, x, image->height / 2).alpha > 128 ? 1 : 0;
    }
    EXPECT_GT(solid, image->width / 5);
    EXPECT_EQ(pixel(*image, 0, 0).alpha, 0);
    EXPECT_EQ(pixel(*image, image->width - 1, image->height - 1).alpha, 0);
  }
}

TEST(ImagesTest, EachAssetIsThereForBothResolutions) {
  expectPair("MenuBarIcon", 18);
  expectPair("SoundCloudIcon", 64);
  expectPair("YouTubeIcon", 64);
}

TEST(ImagesTest, TheIconIsThereInEverySizeThatIconutilTakes) {
  for (const int side : {16, 32, 128, 256, 512}) {
    const std::string text = std::to_string(side);
    expectPair("AppIcon.iconset/icon_" + text + "x" + text, side);
  }
  const auto count = std::distance(std::filesystem::directory_iterator(files / "AppIcon.iconset"),
                                   std::filesystem::directory_iterator());
  EXPECT_EQ(count, 10);
}

TEST(ImagesTest, TheMenuBarIconIsBlackSoThatItCanBeATemplate) {
  const std::optional<Image> image = picture("MenuBarIcon@2x");
  ASSERT_TRUE(image);
  for (int y = 0; y < image->height; ++y) {
    for (int x = 0; x < image->width; ++x) {
      const Pixel here = pixel(*image, x, y);
      if (here.alpha == 0) continue;
      ASSERT_EQ(here.red + here.green + here.blue, 0) << x << ", " << y;
    }
  }
}

TEST(ImagesTest, TheIconIsAsLargeAsOthersBesideIt) {
  const std::optional<Image> image = picture("AppIcon.iconset/icon_512x512@2x");
  ASSERT_TRUE(image);
  int left = 0;
  while (left < image->width && pixel(*image, left, 512).alpha < 128) ++left;
  int right = image->width;
  while (right > left && pixel(*image, right - 1, 512).alpha < 128) --right;
  EXPECT_NEAR(left, 100, 1);
  EXPECT_NEAR(right - left, 824, 1);
}

}  // namespace
}  // namespace talmo::test
