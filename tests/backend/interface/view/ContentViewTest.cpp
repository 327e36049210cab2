#include <QFont>
#include <QHelpEvent>
#include <QPointer>
#include <QScrollBar>
#include <QSize>
#include <QTest>
#include <QToolTip>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/view/EqualizerPart.h"
#include "platform/linux/interface/view/ListArea.h"
#include "platform/linux/interface/view/TextPart.h"
#include "tests/backend/interface/view/ViewTest.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ContentViewTest = ViewTest;

std::vector<View> rows(int count) {
  std::vector<View> all;
  for (int index = 0; index < count; ++index) all.push_back(row("player " + std::to_string(index)));
  return all;
}

std::vector<std::string> shownTexts(const std::vector<TextPart*>& parts) {
  std::vector<std::string> texts;
  for (const TextPart* part : parts) texts.push_back(part->text().toStdString());
  return texts;
}

TEST_F(ContentViewTest, ShowsTextsInTheirOrder) {
  show(panel({text("one", "First"), text("two", "Second")}));
  EXPECT_THAT(shownTexts(parts<TextPart>()), ElementsAre("First", "Second"));
  show(panel({text("three", "Third"), text("two", "Second, later"), text("one", "First")}));
  EXPECT_THAT(shownTexts(parts<TextPart>()), ElementsAre("Third", "Second, later", "First"));
  show(panel({text("two", "Alone")}));
  EXPECT_THAT(shownTexts(parts<TextPart>()), ElementsAre("Alone"));
}

TEST_F(ContentViewTest, StandsOnOneLayerOfGlass) {
  show(panel({text("one", "First"), list({row("a")})}));
  const QImage picture = content_.grab().toImage();
  const int alpha = (appearance_.isDark() ? Palette::dark() : Palette::light()).glass.alpha();
  EXPECT_NEAR(picture.pixelColor(4, picture.height() / 2).alpha(), alpha, 1);
  EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST_F(ContentViewTest, KeepsTheWidgetsOfWhatStays) {
  show(panel({text("title", "One"), list({row("a"), row("b")})}));
  const QPointer<QWidget> title = parts<TextPart>().front();
  const QPointer<QWidget> a = &button("a");
  const QPointer<QWidget> b = &button("b");

  show(panel({text("title", "Two"), list({row("b"), row("c")})}));
  EXPECT_EQ(title.data(), parts<TextPart>().front());
  EXPECT_EQ(b.data(), &button("b"));
  EXPECT_TRUE(a.isNull());
  EXPECT_LT(placeOf(button("b")).y(), placeOf(button("c")).y());
}

TEST_F(ContentViewTest, MakesAnotherWidgetForAnotherKind) {
  show(panel({text("one", "First")}));
  const QPointer<QWidget> before = &only<TextPart>();
  View one = row("one");
  show(panel({one}));
  EXPECT_TRUE(before.isNull());
  EXPECT_EQ(parts<ButtonPart>().size(), 1U);
}

TEST_F(ContentViewTest, KeepsHoveringThroughAnotherContent) {
  show(panel({text("title", "One"), list({row("a"), row("b")})}));
  QTest::mouseMove(&button("b"));
  settle();
  ASSERT_TRUE(button("b").underMouse());
  show(panel({text("title", "Two"), list({row("a"), row("b")})}));
  EXPECT_TRUE(button("b").underMouse());
  EXPECT_FALSE(button("a").underMouse());
}

TEST_F(ContentViewTest, ForgetsHoveringWhenTheWindowGoes) {
  show(panel({list({row("a")})}));
  QTest::mouseMove(&button("a"));
  settle();
  ASSERT_TRUE(button("a").underMouse());
  content_.hide();
  EXPECT_FALSE(button("a").underMouse());
}

TEST_F(ContentViewTest, CallsTheActionOfTheLatestContent) {
  std::vector<std::string> pressed;
  show(panel({list({row("a", [&] { pressed.emplace_back("early"); })})}));
  show(panel({list({row("a", [&] { pressed.emplace_back("late"); })})}));
  QTest::mouseClick(&button("a"), Qt::LeftButton);
  EXPECT_THAT(pressed, ElementsAre("late"));
}

TEST_F(ContentViewTest, SurvivesAnActionThatReplacesTheContent) {
  bool isPressed = false;
  const auto replace = [&] {
    content_.setContent(panel({text("other", "Other")}));
    isPressed = true;
  };
  show(panel({list({row("a", replace)})}));
  QTest::mouseClick(&button("a"), Qt::LeftButton);
  settle();
  EXPECT_TRUE(isPressed);
  EXPECT_THAT(parts<ButtonPart>(), IsEmpty());
}

TEST_F(ContentViewTest, DoesNothingWhenTheMouseIsReleasedElsewhere) {
  int presses = 0;
  show(panel({list({row("a", [&] { ++presses; }), row("b", [&] { ++presses; })})}));
  QTest::mousePress(&button("a"), Qt::LeftButton);
  EXPECT_TRUE(button("a").isDown());
  QTest::mouseRelease(&button("a"), Qt::LeftButton, {}, QPoint(10, 100));
  EXPECT_FALSE(button("a").isDown());
  QTest::mouseClick(&button("a"), Qt::RightButton);
  EXPECT_EQ(presses, 0);
}

TEST_F(ContentViewTest, ShowsTheMenuAsItIsWhenItIsPressed) {
  int made = 0;
  std::vector<std::string> titles;
  content_.setOnMenu([&](const Menu& menu, QWidget& widget) {
    EXPECT_EQ(&widget, &button("Options"));
    for (const MenuItem& item : menu.items) titles.push_back(item.title);
  });
  View options{.identity = "options", .kind = ViewKind::button, .role = ViewRole::iconButton};
  options.accessibilityLabel = "Options";
  options.menu = [&] { return Menu{.items = {{.title = "item " + std::to_string(++made)}}}; };
  show(panel({options}));
  QTest::mouseClick(&button("Options"), Qt::LeftButton);
  QTest::mouseClick(&button("Options"), Qt::LeftButton);
  EXPECT_THAT(titles, ElementsAre("item 1", "item 2"));
}

TEST_F(ContentViewTest, TellsOfAnotherSizeBeforeSetContentReturns) {
  std::vector<QSize> sizes;
  content_.setOnSizeChange([&](const QSize& size) {
    EXPECT_EQ(size, content_.sizeHint());
    sizes.push_back(size);
  });
  content_.setContent(panel({list({row("a")})}));
  ASSERT_EQ(sizes.size(), 1U);
  content_.setContent(panel({list({row("b")})}));
  EXPECT_EQ(sizes.size(), 1U);
  content_.setContent(panel({list({row("b"), row("c")})}));
  ASSERT_EQ(sizes.size(), 2U);
  EXPECT_GT(sizes[1].height(), sizes[0].height());
  EXPECT_EQ(sizes[1].width(), sizes[0].width());
  show(panel({list({row("b"), row("c")})}));
  content_.setContent(panel({list({row("b")})}));
  ASSERT_EQ(sizes.size(), 3U);
  EXPECT_EQ(sizes[2], sizes[0]);
}

TEST_F(ContentViewTest, NeedsMoreRoomForALargerFont) {
  show(panel({list({row("a")}), text("body", "Some words", ViewRole::body)}));
  const int before = content_.sizeHint().height();
  const QFont font = QApplication::font();
  QFont larger = font;
  larger.setPixelSize(26);
  QApplication::setFont(larger);
  settle();
  EXPECT_GT(content_.sizeHint().height(), before);
  QApplication::setFont(font);
  settle();
  EXPECT_EQ(content_.sizeHint().height(), before);
}

TEST_F(ContentViewTest, GivesTheFirstTextOfALineTheRoomThatTheOthersLeave) {
  View line{.identity = "line",
            .kind = ViewKind::horizontal,
            .role = ViewRole::footer,
            .children = {text("one", "Short"), text("two", "Also")}};
  show(panel({line}));
  const std::vector<TextPart*> texts = parts<TextPart>();
  EXPECT_GT(texts.at(0)->width(), 200);
  EXPECT_EQ(texts.at(1)->width(), texts.at(1)->sizeHint().width());
}

TEST_F(ContentViewTest, ScrollsALongListAndNotAShortOne) {
  show(panel({list(rows(5))}));
  const ListArea& area = only<ListArea>();
  EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
  show(panel({list(rows(30))}));
  EXPECT_GT(area.verticalScrollBar()->maximum(), 500);
  EXPECT_LT(content_.sizeHint().height(), 400);
  show(panel({list(rows(3))}));
  EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
}

TEST_F(ContentViewTest, ScrollsWhereTheWindowCannotGrow) {
  show(panel({list(rows(5)), text("body", "Some words", ViewRole::body)}));
  content_.resize(content_.width(), 150);
  settle();
  EXPECT_GT(only<ListArea>().verticalScrollBar()->maximum(), 0);
  for (TextPart* part : parts<TextPart>()) {
    if (part->role() != ViewRole::body) continue;
    EXPECT_LT(placeOf(*part).y() + part->height(), 150);
  }
}

TEST_F(ContentViewTest, ScrollsTheHighlightedRowIntoView) {
  const auto highlighting = [](std::size_t index) {
    std::vector<View> all = rows(30);
    all[index].isHighlighted = true;
    return panel({list(all)});
  };
  show(panel({list(rows(30))}));
  for (const std::size_t index : {std::size_t{29}, std::size_t{0}, std::size_t{17}}) {
    content_.setContent(highlighting(index));
    const ButtonPart& part = button("player " + std::to_string(index));
    const QRect seen = only<ListArea>().viewport()->rect();
    EXPECT_TRUE(
        seen.contains(QRect(part.mapTo(only<ListArea>().viewport(), QPoint()), part.size())))
        << index;
  }
}

TEST_F(ContentViewTest, LeavesWhereThePersonHasScrolledWhileTheHighlightStays) {
  std::vector<View> all = rows(30);
  all[0].isHighlighted = true;
  show(panel({list(all)}));
  only<ListArea>().verticalScrollBar()->setValue(300);
  show(panel({list(all)}));
  EXPECT_EQ(only<ListArea>().verticalScrollBar()->value(), 300);
}

TEST_F(ContentViewTest, SaysAllOfATextThatIsCut) {
  const std::string long_ = "Concerto for two violins, strings and continuo in D minor, BWV 1043";
  show(panel({text("long", long_), text("short", "Concerto")}));
  const std::vector<TextPart*> texts = parts<TextPart>();
  EXPECT_TRUE(texts[0]->text().endsWith(QStringLiteral("…"))) << texts[0]->text().toStdString();
  EXPECT_EQ(texts[0]->toolTip().toStdString(), long_);
  EXPECT_EQ(texts[0]->accessibleName().toStdString(), long_);
  EXPECT_EQ(texts[1]->toolTip(), QString());
}

TEST_F(ContentViewTest, SaysAllOfARowsNameThatIsCut) {
  const std::string name = "A player whose name is far too long for the row that it is in";
  show(panel({list({row(name), row("Short")})}));
  const auto tipOver = [](QWidget& widget) {
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
  };
  EXPECT_EQ(tipOver(button("Short")), "");
  EXPECT_EQ(tipOver(button(name)), name);
}

TEST_F(ContentViewTest, TakesATextForPlainWhateverItSays) {
  show(panel({text("title", "<b>Bold</b> &amp; &Co")}));
  EXPECT_EQ(only<TextPart>().text(), QStringLiteral("<b>Bold</b> &amp; &Co"));
  EXPECT_EQ(only<TextPart>().textFormat(), Qt::PlainText);
}

TEST_F(ContentViewTest, MovesTheEqualizerOnlyWhileItIsOnAndSeen) {
  show(panel({equalizer(true)}));
  auto& bars = only<EqualizerPart>();
  EXPECT_TRUE(bars.isMoving());
  content_.hide();
  EXPECT_FALSE(bars.isMoving());
  show(panel({equalizer(true), text("title", "Next")}));
  EXPECT_EQ(&bars, &only<EqualizerPart>());
  EXPECT_TRUE(bars.isMoving());
  show(panel({equalizer(false)}));
  EXPECT_FALSE(bars.isMoving());
}

TEST_F(ContentViewTest, DrawsTheEqualizerOtherwiseAMomentLaterOnlyWhileItIsOn) {
  show(panel({equalizer(false)}));
  const QImage resting = content_.grab().toImage();
  show(panel({equalizer(true)}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return content_.grab().toImage() != resting; }));
  const QImage moving = content_.grab().toImage();
  EXPECT_TRUE(QTest::qWaitFor([&] { return content_.grab().toImage() != moving; }));
  show(panel({equalizer(false)}));
  EXPECT_EQ(content_.grab().toImage(), resting);
}

TEST_F(ContentViewTest, TakesNoFocusFromTheWindow) {
  View gear{.identity = "gear", .kind = ViewKind::button, .role = ViewRole::iconButton};
  show(panel({list(rows(20)), gear}));
  for (const QWidget* widget : content_.findChildren<QWidget*>()) {
    EXPECT_EQ(widget->focusPolicy(), Qt::NoFocus) << widget->metaObject()->className();
  }
}

TEST_F(ContentViewTest, DimsARowWhileItIsPressed) {
  show(panel({list({row("a")})}));
  const auto picture = [this] {
    settle();
    button("a").setAttribute(Qt::WA_UnderMouse, false);
    return content_.grab().toImage();
  };
  const QImage before = picture();
  QTest::mousePress(&button("a"), Qt::LeftButton);
  EXPECT_NE(content_.grab().toImage(), before);
  QTest::mouseRelease(&button("a"), Qt::LeftButton, {}, QPoint(10, 200));
  EXPECT_EQ(picture(), before);
  QTest::mousePress(&button("a"), Qt::LeftButton);
  content_.hide();
  content_.show();
  EXPECT_EQ(picture(), before);
}

}  // namespace
}  // namespace talmo::test
