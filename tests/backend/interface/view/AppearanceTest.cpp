#include <optional>
#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/linux/interface/view/Appearance.h"
#include "tests/backend/interface/view/FakePortal.h"

namespace talmo::test {
namespace {

// The portal's documentation: org.freedesktop.appearance color-scheme.
constexpr uint noPreference = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

class AppearanceTest : public testing::Test {
 protected:
  AppearanceTest() { setDesktop(QColor(240, 240, 240)); }

  static void setDesktop(const QColor& window) { QApplication::setPalette(QPalette(window)); }

  void start() {
    appearance_.emplace();
    QObject::connect(&*appearance_, &Appearance::changed, [this] { ++changes_; });
  }

  void startPortal(uint scheme) {
    portal_.emplace(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), scheme);
  }

  bool becomesDark() {
    return QTest::qWaitFor([this] { return appearance_->isDark(); }, 10'000);
  }
  bool becomesLight() {
    return QTest::qWaitFor([this] { return !appearance_->isDark(); }, 10'000);
  }
  bool portalIsAsked() {
    return QTest::qWaitFor([this] { return portal_->reads() > 0; }, 10'000);
  }

  std::optional<FakePortal> portal_;
  std::optional<Appearance> appearance_;
  int changes_ = 0;
};

TEST_F(AppearanceTest, GoesByThePaletteWhereThereIsNoPortal) {
  start();
  EXPECT_FALSE(appearance_->isDark());
  setDesktop(QColor(40, 40, 44));
  EXPECT_TRUE(becomesDark());
  setDesktop(QColor(250, 250, 250));
  EXPECT_TRUE(becomesLight());
  EXPECT_EQ(changes_, 2);
}

TEST_F(AppearanceTest, BelievesThePortalMoreThanThePalette) {
  startPortal(dark);
  start();
  EXPECT_TRUE(becomesDark());
  setDesktop(QColor(250, 250, 250));
  QApplication::processEvents();
  EXPECT_TRUE(appearance_->isDark());
}

TEST_F(AppearanceTest, FollowsThePortalWhenItChanges) {
  startPortal(light);
  start();
  ASSERT_TRUE(portalIsAsked());
  EXPECT_FALSE(appearance_->isDark());
  portal_->setColourScheme(dark);
  EXPECT_TRUE(becomesDark());
  portal_->setColourScheme(light);
  EXPECT_TRUE(becomesLight());
}

TEST_F(AppearanceTest, GoesByThePaletteWhereThePortalHasNoPreference) {
  setDesktop(QColor(40, 40, 44));
  startPortal(light);
  start();
  EXPECT_TRUE(becomesLight());
  portal_->setColourScheme(noPreference);
  EXPECT_TRUE(becomesDark());
}

TEST_F(AppearanceTest, AsksAPortalThatComesLater) {
  start();
  EXPECT_FALSE(appearance_->isDark());
  startPortal(dark);
  EXPECT_TRUE(becomesDark());
}

}  // namespace
}  // namespace talmo::test
