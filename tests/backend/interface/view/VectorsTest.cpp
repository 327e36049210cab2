#include <QColor>
#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

#include "platform/linux/interface/view/Vectors.h"
#include "platform/linux/LinuxBundle.h"

namespace talmo::test {
namespace {

class VectorsTest : public testing::TestWithParam<const char*> {
 protected:
  static double coverage(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) sum += qAlpha(image.pixel(x, y)) / 255.0;
    }
    return sum / (image.width() * image.height());
  }

  const LinuxBundle bundle_{TALMO_BUNDLE_FOLDER};
  const Vectors vectors_{bundle_};
};

TEST_P(VectorsTest, HasTheSymbolInAnyColourAndSize) {
  const QColor colour(200, 100, 50);
  for (const int side : {16, 28}) {
    for (const double scale : {1.0, 1.5, 2.0}) {
      const QPixmap pixmap = vectors_.symbol(GetParam(), {side, side}, scale, colour);
      ASSERT_FALSE(pixmap.isNull());
      EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(side, side));
      const QImage image = pixmap.toImage();
      EXPECT_EQ(image.width(), side * scale);
      EXPECT_GT(coverage(image), 0.05);
      EXPECT_LT(coverage(image), 0.8);
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, image.height() / 2);
        if (pixel.alpha() < 250) continue;
        EXPECT_EQ(pixel.rgb(), colour.rgb());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, VectorsTest,
                         testing::Values("app.dashed", "arrow.right", "arrow.up.forward.app",
                                         "checkmark.circle", "checkmark.circle.fill",
                                         "exclamationmark.triangle",
                                         "exclamationmark.triangle.fill", "gearshape", "music.note",
                                         "pin.fill", "slider.horizontal.3"));

class ImagesTest : public VectorsTest {};

TEST_P(ImagesTest, HasTheImageInItsOwnColoursAndAsAShape) {
  const QImage own = vectors_.image(GetParam(), {64, 64}, 1).toImage();
  ASSERT_FALSE(own.isNull());
  EXPECT_GT(coverage(own), 0.2);
  const QImage shape = vectors_.image(GetParam(), {64, 64}, 1, Qt::white).toImage();
  ASSERT_FALSE(shape.isNull());
  EXPECT_NE(own, shape);
  EXPECT_NEAR(coverage(own), coverage(shape), 0.001);
}

INSTANTIATE_TEST_SUITE_P(OfTheProgram, ImagesTest,
                         testing::Values("AppIcon", "MenuBarIcon", "SoundCloudIcon",
                                         "YouTubeIcon"));

TEST(Vectors, AreEmptyForWhatIsNotThere) {
  const LinuxBundle bundle(TALMO_BUNDLE_FOLDER);
  EXPECT_TRUE(Vectors(bundle).symbol("no.such", {16, 16}, 1, Qt::black).isNull());
  EXPECT_TRUE(Vectors(bundle).image("MenuBarIcon", {0, 0}, 1).isNull());
}

}  // namespace
}  // namespace talmo::test
