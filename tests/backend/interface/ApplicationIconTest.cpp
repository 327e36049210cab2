#include <filesystem>
#include <fstream>
#include <optional>
#include <QColor>
#include <QImage>
#include <string>

#include <gtest/gtest.h>

#include "tests/backend/interface/InterfaceDesk.h"

namespace talmo::test {
namespace {

/// The icons of applications, from their desktop entries.
class ApplicationIcon : public ::testing::Test {
 protected:
  /// The icon of an application whose entry says `Icon=name`.
  std::optional<Image> iconNamed(const std::string& name, int pixels) {
    const std::filesystem::path entry = desk_.dataFolder() / "applications" / "example.desktop";
    std::filesystem::create_directories(entry.parent_path());
    std::ofstream(entry) << "[Desktop Entry]\nType=Application\nName=Example\nExec=true\nIcon="
                         << name << '\n';
    return desk_.services().workspace().icon("file://" + entry.string(), pixels);
  }

  static void paint(const std::filesystem::path& file, int size) {
    std::filesystem::create_directories(file.parent_path());
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(QColor(Qt::red));
    ASSERT_TRUE(picture.save(QString::fromStdString(file.string())));
  }

  InterfaceDesk desk_;
};

TEST_F(ApplicationIcon, IsFoundByItsPath) {
  const std::filesystem::path file = desk_.dataFolder() / "own.png";
  paint(file, 64);
  const std::optional<Image> icon = iconNamed(file.string(), 32);
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->width, 32);
  EXPECT_EQ(icon->height, 32);
  EXPECT_EQ(icon->pixels->at(0), 255);
  EXPECT_EQ(icon->pixels->at(1), 0);
}

TEST_F(ApplicationIcon, IsFoundByItsNameInTheThemeThatAllFallBackTo) {
  const std::filesystem::path theme = desk_.dataFolder() / "icons" / "hicolor";
  paint(theme / "48x48" / "apps" / "org.example.Example.png", 48);
  std::ofstream(theme / "index.theme")
      << "[Icon Theme]\nName=Hicolor\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\n";
  const std::optional<Image> icon = iconNamed("org.example.Example", 48);
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->width, 48);
}

TEST_F(ApplicationIcon, IsAbsentWhereThereIsNone) {
  EXPECT_EQ(iconNamed("org.example.Missing", 48), std::nullopt);
  EXPECT_EQ(iconNamed("/no/such/picture.png", 48), std::nullopt);
  EXPECT_EQ(iconNamed("", 48), std::nullopt);
  EXPECT_EQ(desk_.services().workspace().icon("file:///no/such.desktop", 48), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
