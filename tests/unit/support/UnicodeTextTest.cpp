#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(UnicodeText, BytesThatAreNoUtf8AreRepaired) {
  EXPECT_EQ(UnicodeText::repaired("plain"), "plain");
  EXPECT_EQ(UnicodeText::repaired("Ünïcode 🎵"), "Ünïcode 🎵");
  EXPECT_EQ(UnicodeText::repaired("a\xFF\x62"), "a\uFFFDb");
  EXPECT_EQ(UnicodeText::repaired("cut \xF0\x9F\x8E"), "cut \uFFFD");
  EXPECT_EQ(UnicodeText::repaired("\xC0\xAF"), "\uFFFD\uFFFD");                      // overlong
  EXPECT_EQ(UnicodeText::repaired("\xED\xA0\x80").find('\xED'), std::string::npos);  // surrogate
  EXPECT_EQ(UnicodeText::repaired(std::string("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(UnicodeText::repaired(""), "");
}

TEST(UnicodeText, LowerCaseFollowsUnicode) {
  EXPECT_EQ(UnicodeText::lowerCase("YouTube"), "youtube");
  EXPECT_EQ(UnicodeText::lowerCase("ÄÖÜ ÇA ŁÓDŹ"), "äöü ça łódź");
  EXPECT_EQ(UnicodeText::lowerCase("МУЗЫКА"), "музыка");
  EXPECT_EQ(UnicodeText::lowerCase("ＦＵＬＬ"), "ｆｕｌｌ");
  EXPECT_EQ(UnicodeText::lowerCase("東京 🎵"), "東京 🎵");
  EXPECT_EQ(UnicodeText::lowerCase("ẞ"), "ß");
}

TEST(UnicodeText, ASigmaAtTheEndOfAWordIsAFinalOne) {
  EXPECT_EQ(UnicodeText::lowerCase("ΟΔΟΣ"), "οδος");
  EXPECT_EQ(UnicodeText::lowerCase("ΣΟΦΟΣ ΣΑΣ"), "σοφος σας");
}

TEST(UnicodeText, TheLanguageOfThePersonChangesNoCase) {
  // Turkish would make a dotless i of the first.
  EXPECT_EQ(UnicodeText::lowerCase("I"), "i");
  EXPECT_EQ(UnicodeText::lowerCase("İ"), "i\u0307");
  EXPECT_EQ(UnicodeText::lowerCase("ı"), "ı");
}

TEST(UnicodeText, BytesThatAreNoUtf8HaveNoCaseAndNoSpace) {
  EXPECT_EQ(UnicodeText::repaired(UnicodeText::lowerCase("A\xFF\x42")), "a\uFFFDb");
  EXPECT_EQ(UnicodeText::repaired(UnicodeText::composed("a\xFF\x62")), "a\uFFFDb");
  EXPECT_THAT(UnicodeText::splitAtWhitespace("\xFF \xA0"), ElementsAre("\xFF", "\xA0"));
  EXPECT_EQ(UnicodeText::trimmed(" \xE2\x80 "), "\xE2\x80");
  EXPECT_EQ(UnicodeText::characterCount("\xFF"), 1U);
}

TEST(UnicodeText, MarksAreComposedWithTheirLetters) {
  EXPECT_EQ(UnicodeText::composed("Cafe\u0301"), "Café");
  EXPECT_EQ(UnicodeText::composed("Café"), "Café");
  EXPECT_EQ(UnicodeText::composed("ｆ"), "ｆ");
  EXPECT_EQ(UnicodeText::composed(""), "");
}

TEST(UnicodeText, SplitsAtEveryKindOfWhiteSpace) {
  EXPECT_THAT(UnicodeText::splitAtWhitespace("a b"), ElementsAre("a", "b"));
  EXPECT_THAT(UnicodeText::splitAtWhitespace("  a\t\r\n b \v\f"), ElementsAre("a", "b"));
  EXPECT_THAT(UnicodeText::splitAtWhitespace("a\u00A0b\u1680c\u2003d\u202Fe\u205Ff\u3000g"),
              ElementsAre("a", "b", "c", "d", "e", "f", "g"));
  EXPECT_THAT(UnicodeText::splitAtWhitespace("a\u0085b\u2028c\u2029d"),
              ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(UnicodeText::splitAtWhitespace("a\u200Bb\u2060c"), ElementsAre("a\u200Bb\u2060c"));
  EXPECT_THAT(UnicodeText::splitAtWhitespace(""), IsEmpty());
  EXPECT_THAT(UnicodeText::splitAtWhitespace(" \u3000 "), IsEmpty());
}

TEST(UnicodeText, TrimsBothEndsAndNothingBetween) {
  EXPECT_EQ(UnicodeText::trimmed(" \u3000a  b\u00A0\r\n"), "a  b");
  EXPECT_EQ(UnicodeText::trimmed("ab"), "ab");
  EXPECT_EQ(UnicodeText::trimmed(" \t "), "");
  EXPECT_EQ(UnicodeText::trimmed(""), "");
  EXPECT_EQ(UnicodeText::trimmed("東京\u3000"), "東京");
}

TEST(UnicodeText, CountsWhatAPersonCounts) {
  EXPECT_EQ(UnicodeText::characterCount(""), 0U);
  EXPECT_EQ(UnicodeText::characterCount("abc"), 3U);
  EXPECT_EQ(UnicodeText::characterCount("東京都"), 3U);
  EXPECT_EQ(UnicodeText::characterCount("e\u0301"), 1U);
  EXPECT_EQ(UnicodeText::characterCount("👩‍👩‍👧"), 1U);
  EXPECT_EQ(UnicodeText::characterCount("🇩🇪🇫🇷"), 2U);
}

}  // namespace
}  // namespace talmo
