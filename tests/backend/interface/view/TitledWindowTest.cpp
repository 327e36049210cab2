#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/linux/interface/CloseButton.h"
#include "platform/linux/interface/TitledWindow.h"
#include "tests/backend/interface/view/ViewTest.h"

namespace talmo::test {
namespace {

class TitledWindowTest : public testing::Test {
 protected:
  static WindowParameters parameters() {
    return {.title = "Welcome",
            .styleMask = WindowParameters::titled | WindowParameters::closable,
            .contentSize = {.width = 300, .height = 200}};
  }

  static View button(const std::string& name, ViewRole role, std::function<void()> action) {
    return {.identity = name,
            .kind = ViewKind::button,
            .role = role,
            .children = {text("text", name)},
            .action = std::move(action)};
  }

  LinuxBundle bundle_{TALMO_BUNDLE_FOLDER};
  Vectors vectors_{bundle_};
  Appearance appearance_;
  TitledWindow window_{parameters(), vectors_, appearance_};
};

TEST_F(TitledWindowTest, HasItsTitleItsSizeAndNoFrame) {
  EXPECT_EQ(window_.windowTitle(), "Welcome");
  EXPECT_EQ(window_.size(), QSize(300, 200));
  EXPECT_EQ(window_.minimumSize(), window_.maximumSize());
  EXPECT_TRUE(window_.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(window_.windowType(), Qt::Window);
}

TEST_F(TitledWindowTest, StandsInTheMiddleOfTheScreen) {
  window_.center();
  const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
  EXPECT_LE((window_.geometry().center() - middle).manhattanLength(), 2);
}

TEST_F(TitledWindowTest, ReturnAndEnterPressThePrimaryButtonAndNothingElse) {
  std::string pressed;
  window_.setContent(stack(ViewRole::material,
                           {button("later", ViewRole::ghostButton, [&] { pressed += "later "; }),
                            button("link", ViewRole::linkButton, [&] { pressed += "link "; }),
                            button("go", ViewRole::primaryButton, [&] { pressed += "go "; })}));
  window_.open();
  QTest::keyClick(&window_, Qt::Key_Return);
  QTest::keyClick(&window_, Qt::Key_Enter);
  QTest::keyClick(&window_, Qt::Key_Space);
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_EQ(pressed, "go go ");
  EXPECT_TRUE(window_.isVisible());
}

TEST_F(TitledWindowTest, ReturnWithoutAPrimaryButtonDoesNothing) {
  window_.setContent(stack(ViewRole::material, {button("link", ViewRole::linkButton,
                                                       [] { ADD_FAILURE() << "pressed"; })}));
  window_.open();
  QTest::keyClick(&window_, Qt::Key_Return);
}

TEST_F(TitledWindowTest, IsClosedByItsOwnButtonWhichTellsFirst) {
  int closings = 0;
  window_.onWillClose = [&] {
    ++closings;
    EXPECT_TRUE(window_.isVisible());
  };
  window_.setContent(stack(ViewRole::material, {text("text", "Hello")}));
  window_.open();
  auto* const close = window_.findChild<CloseButton*>();
  ASSERT_NE(close, nullptr);
  EXPECT_EQ(close->accessibleName(), "Close");
  EXPECT_TRUE(window_.rect().contains(close->geometry()));
  QTest::mouseClick(close, Qt::LeftButton);
  EXPECT_EQ(closings, 1);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(TitledWindowTest, HasNoCloseButtonUnlessItIsClosable) {
  TitledWindow window({.contentSize = {.width = 300, .height = 200}}, vectors_, appearance_);
  window.open();
  EXPECT_FALSE(window.findChild<CloseButton*>()->isVisible());
}

}  // namespace
}  // namespace talmo::test
