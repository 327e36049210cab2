#include "tests/backend/interface/view/ViewApplication.h"

#include <array>
#include <fstream>
#include <QByteArray>
#include <QFont>
#include <QFontInfo>
#include <QStyleFactory>
#include <string>

#include <nlohmann/json.hpp>

#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

using nlohmann::json;

json screen(int number, double scale) {
  return {{"name", "screen" + std::to_string(number)},
          {"x", number * 4000},
          {"y", 0},
          {"width", 1280},
          {"height", 1024},
          {"logicalDpi", 96},
          {"logicalBaseDpi", 96},
          {"dpr", scale}};
}

const auto* const environment = testing::AddGlobalTestEnvironment(new ViewApplication);

}  // namespace

void ViewApplication::SetUp() {
  const TemporaryFolder folder;
  const std::string file = (folder.path() / "screens.json").string();
  std::ofstream(file) << json{{"screens", {screen(0, 1), screen(1, 1.5), screen(2, 2)}}};
  static std::string program = "test";
  static std::string option = "-platform";
  static std::string platform;
  platform = "offscreen:configfile=" + file;
  static std::array<char*, 4> arguments{program.data(), option.data(), platform.data(), nullptr};
  static int count = 3;
  bus_ = std::make_unique<PrivateBus>();
  qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray::fromStdString(bus_->address()));
  application_ = std::make_unique<QApplication>(count, arguments.data());
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(13);
  ASSERT_EQ(QFontInfo(font).family(), font.family())
      << "the tests of the look need the font of the package fonts-inter";
  QApplication::setFont(font);
}

void ViewApplication::TearDown() {
  application_.reset();
  bus_.reset();
}

}  // namespace talmo::test
