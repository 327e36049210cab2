#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <QColor>
#include <QImage>
#include <random>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/images/LinuxImageDecoder.h"
#include "tests/backend/images/ImageFiles.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;

QImage twoPixels(const QColor& left, const QColor& right) {
  QImage image(2, 1, QImage::Format_ARGB32);
  image.setPixelColor(0, 0, left);
  image.setPixelColor(1, 0, right);
  return image;
}

TEST(LinuxImageDecoder, GivesRedGreenBlueAndAlphaInThisOrder) {
  LinuxImageDecoder decoder;
  const auto image =
      decoder.decode(imageFile(twoPixels(QColor(1, 2, 3), QColor(200, 100, 50, 128)), "png"));
  ASSERT_TRUE(image);
  EXPECT_THAT(*image->pixels, ElementsAre(1, 2, 3, 255, 200, 100, 50, 128));
}

TEST(LinuxImageDecoder, GivesTheFirstPictureOfAnAnimation) {
  LinuxImageDecoder decoder;
  const auto still = decoder.decode(smallGif(false));
  ASSERT_TRUE(still);
  EXPECT_THAT(*still->pixels, ElementsAre(255, 0, 0, 255, 0, 255, 0, 255));
  const auto animated = decoder.decode(smallGif(true));
  ASSERT_TRUE(animated);
  EXPECT_EQ(*animated->pixels, *still->pixels);
}

TEST(LinuxImageDecoder, HasNothingForAGifThatEndsInItsFirstPicture) {
  LinuxImageDecoder decoder;
  const std::string whole = smallGif(false);
  // The end marker of the code, the empty block and the file's end are not missed.
  for (std::size_t size = 0; size + 4 < whole.size(); ++size) {
    EXPECT_FALSE(decoder.decode(whole.substr(0, size))) << size;
  }
}

TEST(LinuxImageDecoder, TurnsAPhotographUpright) {
  QImage wide(64, 16, QImage::Format_RGB32);
  wide.fill(Qt::black);
  for (int x = 0; x < 16; ++x) {
    for (int y = 0; y < 16; ++y) wide.setPixelColor(x, y, Qt::white);
  }
  const std::string file = imageFile(wide, "jpeg");
  LinuxImageDecoder decoder;
  const auto plain = decoder.decode(withOrientation(file, 1));
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->width, 64);
  EXPECT_GT(plain->pixels->front(), 200);

  // 6: the camera was turned; the left of the file is the top of the picture.
  const auto turned = decoder.decode(withOrientation(file, 6));
  ASSERT_TRUE(turned);
  EXPECT_EQ(turned->width, 16);
  EXPECT_EQ(turned->height, 64);
  EXPECT_GT(turned->pixels->front(), 200);
  EXPECT_LT((*turned->pixels)[turned->pixels->size() - 4], 50);

  // 3: upside down.
  const auto upsideDown = decoder.decode(withOrientation(file, 3));
  ASSERT_TRUE(upsideDown);
  EXPECT_LT(upsideDown->pixels->front(), 50);
}

TEST(LinuxImageDecoder, LeavesOtherKindsOfImagesAlone) {
  LinuxImageDecoder decoder;
  for (const char* format : {"bmp", "ppm", "xpm", "ico"}) {
    EXPECT_FALSE(decoder.decode(imageFile(picture(16, 16, "cover"), format))) << format;
  }
}

TEST(LinuxImageDecoder, LooksForTheEndOfAJpegBehindItsThumbnail) {
  const std::string whole = imageFile(picture(64, 64, "cover"), "jpeg");
  // A comment that holds an end marker, as a thumbnail does.
  const std::string comment("\xFF\xFE\0\x06\xFF\xD9\xFF\xD9", 8);
  const std::string file = whole.substr(0, 2) + comment + whole.substr(2);
  LinuxImageDecoder decoder;
  EXPECT_TRUE(decoder.decode(file));
  EXPECT_FALSE(decoder.decode(file.substr(0, file.size() - 2)));
}

TEST(LinuxImageDecoder, ReadsGreyPalettesAndDeepColours) {
  LinuxImageDecoder decoder;
  for (const QImage::Format format : {QImage::Format_Grayscale8, QImage::Format_Indexed8,
                                      QImage::Format_RGBA64, QImage::Format_Mono}) {
    const auto image =
        decoder.decode(imageFile(picture(9, 5, "cover").convertToFormat(format), "png"));
    ASSERT_TRUE(image) << format;
    EXPECT_EQ(image->pixels->size(), 9U * 5U * 4U);
  }
}

TEST(LinuxImageDecoder, TakesTheLargestSensibleImageAndNoLarger) {
  LinuxImageDecoder decoder;
  QImage large(4000, 3000, QImage::Format_RGB32);
  large.fill(Qt::blue);
  EXPECT_TRUE(decoder.decode(imageFile(large, "png")));
  QImage larger(4000, 3001, QImage::Format_RGB32);
  larger.fill(Qt::blue);
  EXPECT_FALSE(decoder.decode(imageFile(larger, "png")));
}

TEST(LinuxImageDecoder, DoesNotLookAtAFileThatIsTooLarge) {
  LinuxImageDecoder decoder;
  std::string file = imageFile(picture(8, 8, "cover"), "png");
  file.resize(LinuxImageDecoder::largestFile);
  EXPECT_TRUE(decoder.decode(file));
  file.push_back('\0');
  EXPECT_FALSE(decoder.decode(file));
}

TEST(LinuxImageDecoder, SurvivesDamageOfEveryKind) {
  std::vector<std::string> files = {smallGif(true)};
  for (const char* format : {"png", "jpeg"}) {
    files.push_back(imageFile(picture(33, 17, "cover"), format));
  }
  LinuxImageDecoder decoder;
  std::mt19937 random(1);
  testing::internal::CaptureStderr();
  for (const std::string& file : files) {
    for (int round = 0; round < 300; ++round) {
      std::string damaged = file;
      for (int i = 0; i <= round % 4; ++i) {
        damaged[random() % (round % 2 == 0 ? std::min<std::size_t>(64, file.size())
                                           : file.size())] = static_cast<char>(random());
      }
      if (const auto image = decoder.decode(damaged)) {
        EXPECT_EQ(image->pixels->size(), static_cast<std::size_t>(image->width) *
                                             static_cast<std::size_t>(image->height) * 4);
      }
    }
  }
  // Qt is silent; libpng insists on a line of its own.
  std::istringstream lines(testing::internal::GetCapturedStderr());
  for (std::string line; std::getline(lines, line);) {
    EXPECT_THAT(line, testing::StartsWith("libpng error: "));
  }
}

TEST(LinuxImageDecoder, ServesSeveralThreadsAtOnce) {
  LinuxImageDecoder decoder;
  const std::array files = {imageFile(picture(50, 40, "a"), "png"),
                            imageFile(picture(50, 40, "a"), "jpeg"), smallGif(true)};
  std::array<int, 4> decoded{};
  std::vector<std::thread> threads;
  for (int& count : decoded) {
    threads.emplace_back([&] {
      for (std::size_t i = 0; i < 60; ++i)
        count += decoder.decode(files[i % 3]).has_value() ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(decoded, testing::Each(60));
}

}  // namespace
}  // namespace talmo::test
