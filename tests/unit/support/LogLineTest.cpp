#include <string_view>

#include <gtest/gtest.h>

#include "support/LogLine.h"

namespace talmo::test {
namespace {

using namespace std::string_view_literals;

TEST(LogLine, PlainTextStaysAsItIs) {
  EXPECT_EQ(oneLogLine(""), "");
  EXPECT_EQ(oneLogLine("Routing media keys to VLC"), "Routing media keys to VLC");
  EXPECT_EQ(oneLogLine("\u00e9\u65e5\U0001F3B5\u00a0 \\ \"%d\""),
            "\u00e9\u65e5\U0001F3B5\u00a0 \\ \"%d\"");
}

TEST(LogLine, LineEndsAndControlCharactersAreEscaped) {
  EXPECT_EQ(oneLogLine("one\ntwo\r\nthree\tfour"), "one\\ntwo\\r\\nthree\\tfour");
  EXPECT_EQ(oneLogLine("\x1b[31mred\x07\x7f"), "\\x1b[31mred\\x07\\x7f");
  EXPECT_EQ(oneLogLine("a\u0085b\u009bc\u2028d\u2029e"), "a\\u0085b\\u009bc\\u2028d\\u2029e");
}

TEST(LogLine, AZeroCharacterDoesNotEndIt) {
  EXPECT_EQ(oneLogLine("a\0b"sv), "a\\x00b");
}

TEST(LogLine, BytesThatAreNoTextBecomeReplacementCharacters) {
  EXPECT_EQ(oneLogLine("a\xff\xfez"), "a\ufffd\ufffdz");
  EXPECT_EQ(oneLogLine("cut \xc2"), "cut \ufffd");
  EXPECT_EQ(oneLogLine("cut \xe2\x82"), "cut \ufffd");
  EXPECT_EQ(oneLogLine("\xc2\n"), "\ufffd\\n");
}

}  // namespace
}  // namespace talmo::test
