#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QTextBoundaryFinder>

#include <gtest/gtest.h>

#include "platform/linux/interface/view/ElidedText.h"

namespace talmo::test {
namespace {

const QString ellipsis = QStringLiteral("…");

class ElidedTextTest : public testing::Test {
 protected:
  /// What is left of a text that has room for `room` and an ellipsis.
  ElidedText withRoomFor(const QString& room, const QString& text) const {
    return ElidedText::of(text, metrics_, metrics_.horizontalAdvance(room + ellipsis) + 0.5);
  }

  const QFontMetricsF metrics_{QFont()};
};

TEST_F(ElidedTextTest, LeavesATextThatFitsAsItIs) {
  const QString text = QStringLiteral("Midnight, in the harbour");
  EXPECT_EQ(ElidedText::of(text, metrics_, metrics_.horizontalAdvance(text)),
            (ElidedText{.text = text, .fades = false}));
}

TEST_F(ElidedTextTest, EndsWithAWord) {
  const QString text = QStringLiteral("Midnight in the harbour");
  EXPECT_EQ(withRoomFor(QStringLiteral("Midnight in the harb"), text).text,
            QStringLiteral("Midnight in the…"));
  EXPECT_EQ(withRoomFor(QStringLiteral("Midnight in the"), text).text,
            QStringLiteral("Midnight in the…"));
  EXPECT_EQ(withRoomFor(QStringLiteral("Midnight in th"), text).text,
            QStringLiteral("Midnight in…"));
}

TEST_F(ElidedTextTest, LeavesNoSeparatorBeforeTheEllipsis) {
  EXPECT_EQ(
      withRoomFor(QStringLiteral("Strings, and con"), QStringLiteral("Strings, and continuo")).text,
      QStringLiteral("Strings, and…"));
  EXPECT_EQ(
      withRoomFor(QStringLiteral("Strings, an"), QStringLiteral("Strings, and continuo")).text,
      QStringLiteral("Strings…"));
  EXPECT_EQ(
      withRoomFor(QStringLiteral("Harbour (Rem"), QStringLiteral("Harbour (Remastered 2011)")).text,
      QStringLiteral("Harbour…"));
  EXPECT_EQ(
      withRoomFor(QStringLiteral("Harbour - Re"), QStringLiteral("Harbour - Remastered")).text,
      QStringLiteral("Harbour…"));
}

TEST_F(ElidedTextTest, NeverCutsAWordAtAnyWidth) {
  const QString text = QStringLiteral(
      "Concerto for the cafe\u0301's two violins \U0001F468\u200D\U0001F469\u200D\U0001F467, "
      "أغنية عن البحر and 港町を歩く猫");
  for (qreal width = 0; width < metrics_.horizontalAdvance(text); width += 1) {
    const ElidedText elided = ElidedText::of(text, metrics_, width);
    if (elided.fades) {
      EXPECT_EQ(elided.text, text);
      continue;
    }
    ASSERT_TRUE(elided.text.endsWith(ellipsis)) << width;
    EXPECT_LE(metrics_.horizontalAdvance(elided.text), width);
    const QString beginning = elided.text.chopped(1);
    ASSERT_TRUE(text.startsWith(beginning));
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, text);
    words.setPosition(beginning.size());
    EXPECT_TRUE(words.isAtBoundary()) << elided.text.toStdString();
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    characters.setPosition(beginning.size());
    EXPECT_TRUE(characters.isAtBoundary()) << elided.text.toStdString();
  }
}

TEST_F(ElidedTextTest, LetsASingleWordFadeOut) {
  const QString word = QStringLiteral("Donaudampfschifffahrtselektrizitätenhauptbetriebswerk");
  EXPECT_EQ(withRoomFor(word.left(20), word), (ElidedText{.text = word, .fades = true}));
  // A first word that has no room is one too.
  const QString more = word + QStringLiteral(" am Abend");
  EXPECT_EQ(withRoomFor(word.left(20), more), (ElidedText{.text = more, .fades = true}));
}

TEST_F(ElidedTextTest, CutsARightToLeftTextAtItsOwnEnd) {
  const ElidedText elided =
      withRoomFor(QStringLiteral("أغنية طويلة عن ا"), QStringLiteral("أغنية طويلة عن البحر"));
  EXPECT_EQ(elided.text, QStringLiteral("أغنية طويلة عن…"));
  EXPECT_TRUE(elided.text.isRightToLeft());
}

TEST_F(ElidedTextTest, CutsIdeographsBetweenThem) {
  EXPECT_EQ(withRoomFor(QStringLiteral("真夜中"), QStringLiteral("真夜中港町歩猫")).text,
            QStringLiteral("真夜中…"));
}

TEST_F(ElidedTextTest, HasNothingToCutFromAnEmptyText) {
  EXPECT_EQ(ElidedText::of(QString(), metrics_, 0), ElidedText{});
}

}  // namespace
}  // namespace talmo::test
