#include <cstddef>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/images/PremultipliedPixels.h"

namespace talmo::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes divided(Bytes pixels) {
  divideAlphaOut(pixels);
  return pixels;
}

TEST(PremultipliedPixels, ThatAreOpaqueStayAsTheyAre) {
  EXPECT_EQ(divided({1, 128, 255, 255}), (Bytes{1, 128, 255, 255}));
}

TEST(PremultipliedPixels, ThatShowNothingAreZero) {
  EXPECT_EQ(divided({9, 8, 7, 0}), (Bytes{0, 0, 0, 0}));
}

TEST(PremultipliedPixels, ThatAreHalfTransparentGetTheirColourBack) {
  EXPECT_EQ(divided({128, 64, 0, 128}), (Bytes{255, 128, 0, 128}));
}

TEST(PremultipliedPixels, EachHaveTheirOwnAlpha) {
  EXPECT_EQ(divided({10, 20, 30, 255, 1, 0, 1, 2, 5, 5, 5, 0}),
            (Bytes{10, 20, 30, 255, 128, 0, 128, 2, 0, 0, 0, 0}));
}

TEST(PremultipliedPixels, AreNeverBrighterThanWhite) {
  EXPECT_EQ(divided({200, 100, 50, 100}), (Bytes{255, 255, 128, 100}));
}

TEST(PremultipliedPixels, ComeBackWithinTheirPrecision) {
  for (int alpha = 1; alpha < 256; ++alpha) {
    for (int colour = 0; colour < 256; colour += 5) {
      const int multiplied = (colour * alpha + 127) / 255;
      const auto byte = static_cast<std::uint8_t>(multiplied);
      const Bytes pixel = divided({byte, byte, byte, static_cast<std::uint8_t>(alpha)});
      // Half a step of the multiplied value, and half of one of the divided.
      EXPECT_NEAR(pixel[0], colour, 127.5 / alpha + 0.5) << colour << " with alpha " << alpha;
    }
  }
}

TEST(PictureSize, IsWithinBounds) {
  EXPECT_TRUE(isPictureSize(1, 1));
  EXPECT_TRUE(isPictureSize(3000, 4000));
  EXPECT_TRUE(isPictureSize(16384, 1));
}

TEST(PictureSize, IsNoneForAnEmptyOrEndlessPicture) {
  EXPECT_FALSE(isPictureSize(0, 10));
  EXPECT_FALSE(isPictureSize(10, 0));
  EXPECT_FALSE(isPictureSize(16385, 1));
  EXPECT_FALSE(isPictureSize(1, 16385));
  EXPECT_FALSE(isPictureSize(3000, 4001));
  EXPECT_FALSE(isPictureSize(~std::size_t{0}, ~std::size_t{0}));
}

}  // namespace
}  // namespace talmo::test
