#include <string_view>

#include <gtest/gtest.h>

#include "platform/macos/log/LogLine.h"

namespace talmo::test {
namespace {

using namespace std::string_view_literals;

TEST(LogLine, PlainTextStaysAsItIs) {
  EXPECT_EQ(oneLine(""), "");
  EXPECT_EQ(oneLine("Routing media keys to VLC"), "Routing media keys to VLC");
  EXPECT_EQ(oneLine("\u00e9\u65e5\U0001F3B5\u00a0 \\ \"%d\""),
            "\u00e9\u65e5\U0001F3B5\u00a0 \\ \"%d\"");
}

TEST(LogLine, LineEndsAndControlCharactersAreEscaped) {
  EXPECT_EQ(oneLine("one\ntwo\r\nthree\tfour"), "one\\ntwo\\r\\nthree\\tfour");
  EXPECT_EQ(oneLine("\x1b[31mred\x07\x7f"), "\\x1b[31mred\\x07\\x7f");
  EXPECT_EQ(oneLine("a\u0085b\u009bc\u2028d\u2029e"), "a\\u0085b\\u009bc\\u2028d\\u2029e");
}

TEST(LogLine, AZeroCharacterDoesNotEndIt) {
  EXPECT_EQ(oneLine("a\0b"sv), "a\\x00b");
}

TEST(LogLine, BytesThatAreNoTextBecomeReplacementCharacters) {
  EXPECT_EQ(oneLine("a\xff\xfez"), "a\ufffd\ufffdz");
  EXPECT_EQ(oneLine("cut \xc2"), "cut \ufffd");
  EXPECT_EQ(oneLine("\xc2\n"), "\ufffd\\n");
}

}  // namespace
}  // namespace talmo::test
