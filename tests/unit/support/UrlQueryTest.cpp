#include <string>

#include <gtest/gtest.h>

#include "support/UrlQuery.h"

namespace talmo {
namespace {

std::string encoded(const std::string& value) {
  return UrlQuery{.items = {{"term", value}}}.percentEncoded();
}

TEST(UrlQuery, JoinsItemsInTheirOrder) {
  const UrlQuery query{.items = {{"term", "x"}, {"media", "music"}, {"limit", "5"}}};
  EXPECT_EQ(query.percentEncoded(), "term=x&media=music&limit=5");
}

TEST(UrlQuery, OfNothingIsEmpty) {
  EXPECT_EQ(UrlQuery{}.percentEncoded(), "");
}

TEST(UrlQuery, EncodesSpacesAndPlusesAsThemselves) {
  EXPECT_EQ(encoded("one two+three"), "term=one%20two%2Bthree");
}

TEST(UrlQuery, EncodesWhatWouldEndAnItem) {
  EXPECT_EQ(encoded("a&b=c#d?e;f%41"), "term=a%26b%3Dc%23d%3Fe%3Bf%2541");
  EXPECT_EQ((UrlQuery{.items = {{"a=b", "c"}}}.percentEncoded()), "a%3Db=c");
}

TEST(UrlQuery, EncodesTheBytesOfUtf8) {
  EXPECT_EQ(encoded("Bj\u00F6rk"), "term=Bj%C3%B6rk");
  EXPECT_EQ(encoded("\u97F3"), "term=%E9%9F%B3");
}

TEST(UrlQuery, EncodesAnyByte) {
  EXPECT_EQ(encoded(std::string("a\0b\xFF\n", 5)), "term=a%00b%FF%0A");
  EXPECT_EQ(encoded(""), "term=");
}

TEST(UrlQuery, LeavesWhatNeedsNoEncoding) {
  EXPECT_EQ(encoded("AZaz09-._~"), "term=AZaz09-._~");
}

}  // namespace
}  // namespace talmo
