#include <filesystem>
#include <map>
#include <memory>
#include <QAbstractButton>
#include <QApplication>
#include <QColor>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QString>
#include <QWindow>
#include <string>

#include <gtest/gtest.h>

#include "onboarding/OnboardingWindowController.h"
#include "platform/linux/interface/TitledWindow.h"
#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/linux/LinuxBundle.h"
#include "tests/backend/interface/view/OnboardingStates.h"
#include "tests/backend/interface/view/PanelStates.h"
#include "tests/backend/interface/view/PictureComparison.h"

namespace talmo::test {
namespace {

enum class Manner { plain, hovered, pressed };

/// As if the mouse was there. Every button at once, so that one picture shows all.
void touch(QAbstractButton& button, Manner manner) {
  button.setAttribute(Qt::WA_UnderMouse);
  if (manner != Manner::pressed) return;
  QMouseEvent press(QEvent::MouseButtonPress, button.rect().center(),
                    button.mapToGlobal(button.rect().center()), Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(&button, &press);
}

void moveToScreenOf(QWidget& window, int scaleInPercent) {
  window.winId();
  for (QScreen* screen : QGuiApplication::screens()) {
    if (qRound(screen->devicePixelRatio() * 100) == scaleInPercent) {
      window.windowHandle()->setScreen(screen);
    }
  }
}

QImage pictureOf(QWidget& window, Manner manner, const QColor& background) {
  if (manner != Manner::plain) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
      touch(*button, manner);
    }
  }
  const QPixmap seen = window.grab();
  QImage picture(seen.size(), QImage::Format_RGB32);
  picture.fill(background);
  QPainter painter(&picture);
  painter.drawImage(picture.rect(), seen.toImage());
  return picture;
}

/// A panel, or the window of the first run, as it looks over a window in the middle between black
/// and white.
QImage pictureOf(const View& view, Manner manner, bool isDark, int scaleInPercent) {
  const LinuxBundle bundle(TALMO_BUNDLE_FOLDER);
  const Vectors vectors(bundle);
  const QColor background = isDark ? QColor(52, 54, 62) : QColor(222, 224, 232);
  QApplication::setPalette(QPalette(background));
  Appearance appearance;
  if (view.role == ViewRole::material) {
    TitledWindow window(
        {.styleMask = WindowParameters::closable, .contentSize = OnboardingWindowController::size},
        vectors, appearance);
    moveToScreenOf(window, scaleInPercent);
    window.setContent(view);
    return pictureOf(window, manner, background);
  }
  ContentView content(vectors, appearance);
  content.setAttribute(Qt::WA_TranslucentBackground);
  moveToScreenOf(content, scaleInPercent);
  content.setContent(view);
  content.resize(content.sizeHint());
  return pictureOf(content, manner, background);
}

/// Every state of everything that is shown, by name.
std::map<std::string, View> allStates() {
  std::map<std::string, View> states = panelStates();
  states.merge(onboardingStates());
  return states;
}

struct Picture {
  std::string state;
  Manner manner;
  bool isDark;
  int scaleInPercent;

  std::string name() const {
    const char* const suffix = manner == Manner::hovered   ? "-hovered"
                               : manner == Manner::pressed ? "-pressed"
                                                           : "";
    return state + suffix + (isDark ? "-dark" : "-light") +
           (scaleInPercent == 100 ? "" : "-" + std::to_string(scaleInPercent));
  }
};

std::vector<Picture> pictures() {
  std::vector<Picture> all;
  for (const auto& [state, view] : allStates()) {
    for (const bool isDark : {false, true}) all.push_back({state, Manner::plain, isDark, 100});
  }
  for (const bool isDark : {false, true}) {
    all.push_back({"all-at-once", Manner::hovered, isDark, 100});
    all.push_back({"all-at-once", Manner::pressed, isDark, 100});
    all.push_back({"onboarding-help", Manner::hovered, isDark, 100});
    all.push_back({"onboarding-tap-failed", Manner::pressed, isDark, 100});
    all.push_back({"onboarding-waiting", Manner::plain, isDark, 200});
    all.push_back({"web-players", Manner::plain, isDark, 150});
    all.push_back({"web-players", Manner::plain, isDark, 200});
  }
  return all;
}

TEST(Pictures, AreTheKeptOnes) {
  const std::map<std::string, View> states = allStates();
  PictureComparison comparison(TALMO_KEPT_PICTURES, TALMO_MADE_PICTURES);
  for (const Picture& picture : pictures()) {
    const QImage made =
        pictureOf(states.at(picture.state), picture.manner, picture.isDark, picture.scaleInPercent);
    const std::string complaint = comparison.complaintAbout(picture.name(), made);
    EXPECT_EQ(complaint, "") << "TALMO_KEEP_PICTURES=1 keeps what is made now";
  }
  EXPECT_EQ(comparison.keptButNotMade(), std::vector<std::string>());
}

}  // namespace
}  // namespace talmo::test
