#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/linux/log/LogText.h"

namespace talmo {
namespace {

using namespace std::string_view_literals;

TEST(LogText, PlainTextStaysAsItIs) {
  EXPECT_EQ(oneLogLine(""), "");
  EXPECT_EQ(oneLogLine("Routing media keys to VLC"), "Routing media keys to VLC");
  EXPECT_EQ(oneLogLine("\u00e9\u65e5\U0001F3B5 \\ \"%d\""), "\u00e9\u65e5\U0001F3B5 \\ \"%d\"");
}

TEST(LogText, LineEndsAndControlCharactersAreEscaped) {
  EXPECT_EQ(oneLogLine("one\ntwo\r\nthree\tfour"), "one\\ntwo\\r\\nthree\\tfour");
  EXPECT_EQ(oneLogLine("\x1b[31mred\x07\x7f"), "\\x1b[31mred\\x07\\x7f");
  EXPECT_EQ(oneLogLine("a\u0085b\u009bc\u2028d\u2029e"), "a\\u0085b\\u009bc\\u2028d\\u2029e");
}

TEST(LogText, BytesThatAreNoTextBecomeReplacementCharacters) {
  EXPECT_EQ(oneLogLine("a\xff\xfe"
                       "b"),
            "a\ufffd\ufffd"
            "b");
  EXPECT_EQ(oneLogLine("cut \xe2\x82"), "cut \ufffd\ufffd");
  EXPECT_EQ(oneLogLine("a\0b"sv),
            "a\ufffd"
            "b");
}

TEST(LogText, CutsBetweenCharacters) {
  EXPECT_EQ(cutToBytes("abc", 3), "abc");
  EXPECT_EQ(cutToBytes("abcd", 3), "abc");
  EXPECT_EQ(cutToBytes("ab\u20ac", 5), "ab\u20ac");
  EXPECT_EQ(cutToBytes("ab\u20ac", 4), "ab");
  EXPECT_EQ(cutToBytes("ab\u20ac", 3), "ab");
  EXPECT_EQ(cutToBytes("\u20ac", 2), "");
  EXPECT_EQ(cutToBytes("abc", 0), "");
}

}  // namespace
}  // namespace talmo
