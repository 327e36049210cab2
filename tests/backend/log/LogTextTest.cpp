#include <gtest/gtest.h>

#include "platform/linux/log/LogText.h"

namespace talmo {
namespace {

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
