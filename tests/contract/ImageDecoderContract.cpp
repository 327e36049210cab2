#include "tests/contract/ImageDecoderContract.h"

#include <cstddef>
#include <utility>

namespace talmo::test {

TEST_P(ImageDecoderContract, DecodesAnImageOfItsSize) {
  for (const auto& [width, height] : {std::pair(1, 1), {3, 2}, {5, 700}, {640, 480}}) {
    const std::optional<Image> image = decode(world().encode(width, height, "cover"));
    ASSERT_TRUE(image) << width << " by " << height;
    EXPECT_EQ(image->width, width);
    EXPECT_EQ(image->height, height);
    ASSERT_NE(image->pixels, nullptr);
    EXPECT_EQ(image->pixels->size(), static_cast<std::size_t>(width * height * 4));
    EXPECT_EQ(image->pixels->back(), 255) << "opaque";
  }
}

TEST_P(ImageDecoderContract, GivesTheSamePixelsForTheSameBytesAndOthersForOthers) {
  const std::optional<Image> first = decode(world().encode(16, 16, "first"));
  const std::optional<Image> again = decode(world().encode(16, 16, "first"));
  const std::optional<Image> second = decode(world().encode(16, 16, "second"));
  ASSERT_TRUE(first && again && second);
  EXPECT_EQ(*first->pixels, *again->pixels);
  EXPECT_NE(*first->pixels, *second->pixels);
}

TEST_P(ImageDecoderContract, HasNothingForWhatIsNoImage) {
  EXPECT_FALSE(decode(""));
  EXPECT_FALSE(decode(std::string("\0", 1)));
  EXPECT_FALSE(decode("<!DOCTYPE html><title>404</title>"));
  EXPECT_FALSE(decode("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>"));
  EXPECT_FALSE(decode("#define x_width 8\n#define x_height 1\nstatic char x_bits[] = {0};"));
  EXPECT_FALSE(decode("P1 1 1 0\n"));
  EXPECT_FALSE(decode(std::string(100'000, '\xFF')));
}

TEST_P(ImageDecoderContract, HasNothingForAnImageThatIsCutOff) {
  const std::string whole = world().encode(64, 64, "cover");
  ASSERT_TRUE(decode(whole));
  const std::size_t step = whole.size() / 200 + 1;
  for (std::size_t size = 0; size < whole.size() * 9 / 10; size += step) {
    EXPECT_FALSE(decode(whole.substr(0, size))) << size << " of " << whole.size();
  }
}

TEST_P(ImageDecoderContract, IgnoresWhatFollowsTheImage) {
  const std::string bytes = world().encode(8, 8, "cover");
  const std::optional<Image> plain = decode(bytes);
  const std::optional<Image> followed = decode(bytes + "and more\n" + bytes);
  ASSERT_TRUE(plain && followed);
  EXPECT_EQ(*plain->pixels, *followed->pixels);
}

TEST_P(ImageDecoderContract, HasNothingForAClaimOfAHugeSize) {
  for (const auto& [width, height] :
       {std::pair(60'000, 60'000), {1, 65'000}, {65'000, 1}, {0, 5}, {5, 0}}) {
    EXPECT_FALSE(decode(world().claim(width, height))) << width << " by " << height;
  }
}

TEST_P(ImageDecoderContract, AnImageOutlivesItsBytes) {
  std::optional<Image> image;
  {
    const std::string bytes = world().encode(4, 4, "cover");
    image = decode(bytes);
  }
  ASSERT_TRUE(image);
  const Image copy = *image;
  image.reset();
  EXPECT_EQ(copy.pixels->size(), 64U);
}

}  // namespace talmo::test
