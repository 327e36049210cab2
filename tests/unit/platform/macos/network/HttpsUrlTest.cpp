#include <string>

#include <gtest/gtest.h>

#include "platform/macos/network/HttpsUrl.h"

namespace talmo::test {
namespace {

TEST(HttpsUrl, IsOneWithAHostInWhateverCase) {
  EXPECT_TRUE(isHttpsUrl("https://is1.example.com/image/100x100.jpg"));
  EXPECT_TRUE(isHttpsUrl("HTTPS://example.com"));
  EXPECT_TRUE(isHttpsUrl("https://example.com:8443/search?term=a%20b&limit=5"));
  EXPECT_TRUE(isHttpsUrl("https://[::1]/"));
}

TEST(HttpsUrl, IsNoneOfAnotherScheme) {
  for (const char* url :
       {"http://example.com/", "ftp://example.com/", "file:///etc/hosts", "data:,text",
        "httpss://example.com/", "//example.com/", "example.com", "/page", ""}) {
    EXPECT_FALSE(isHttpsUrl(url)) << url;
  }
}

TEST(HttpsUrl, IsNoneWithoutAHost) {
  for (const char* url : {"https:", "https:/", "https://", "https:///page", "https://?query"}) {
    EXPECT_FALSE(isHttpsUrl(url)) << url;
  }
}

TEST(HttpsUrl, IsNoneWithAZeroCharacter) {
  EXPECT_FALSE(isHttpsUrl("https://example.com/" + std::string(1, '\0') + "more"));
}

}  // namespace
}  // namespace talmo::test
