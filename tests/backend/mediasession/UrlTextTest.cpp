#include <string>
#include <utf8.h>
#include <utility>

#include <gtest/gtest.h>

#include "platform/linux/mediasession/UrlText.h"

namespace talmo::test {
namespace {

TEST(UrlText, FilesOfThisMachineHaveAPath) {
  const std::pair<const char*, const char*> rows[]{
      {"file:///tmp/a.png", "/tmp/a.png"},
      {"FILE:///tmp/a.png", "/tmp/a.png"},
      {"file://localhost/tmp/a.png", "/tmp/a.png"},
      {"file:/tmp/a.png", "/tmp/a.png"},
      {"file:///tmp/My%20Music/%C3%A9%23.png", "/tmp/My Music/\xC3\xA9#.png"},
      {"file:///tmp/My Music/\xC3\xA9.png", "/tmp/My Music/\xC3\xA9.png"},
      {"file:///tmp/100%.png", "/tmp/100%.png"},
      {"file:///tmp/%E9.png", "/tmp/\xE9.png"},
      {"file:///tmp/a+b?c#d.png", "/tmp/a+b?c#d.png"},
  };
  for (const auto& [url, path] : rows) EXPECT_EQ(filePathOf(url), path) << url;
}

TEST(UrlText, NothingElseHasAPath) {
  for (const char* url :
       {"", "file:", "file://", "file://localhost", "file://elsewhere/tmp/a.png", "file:tmp/a.png",
        "file:///tmp/a%00b.png", "http://localhost/a.png", "https://i.example/a.png", "/tmp/a.png",
        "data:image/png,abc", "files:///tmp/a.png"}) {
    EXPECT_EQ(filePathOf(url), std::nullopt) << url;
  }
}

TEST(UrlText, ATrackIsCalledAfterItsFile) {
  const std::pair<const char*, const char*> rows[]{
      {"file:///tunes/01%20Morning.ogg", "01 Morning"},
      {"file:///tunes/Morgenl%C3%B8b.flac",
       "Morgenl\xC3\xB8"
       "b"},
      {"file:///tunes/Mr. Someone", "Mr. Someone"},
      {"file:///tunes/.hidden", ".hidden"},
      {"file:///tunes/a.b.mp3", "a.b"},
      {"file:///tunes/a.averylongword", "a.averylongword"},
      {"file:///tunes/caf%E9.mp3", "caf%E9"},
      {"file:///tunes/a%00b.mp3", "a%00b"},
      {"file:///tunes/why%3F#3.mp3", "why?#3"},
      {"file:///tunes/", ""},
      {"https://radio.example/live/stream.mp3?token=a/b.c#x", "stream"},
      {"https://radio.example", ""},
      {"https://radio.example/", ""},
      {"cdda:///dev/sr0", "sr0"},
      {"no address", ""},
      {"", ""},
  };
  for (const auto& [url, title] : rows) EXPECT_EQ(titleFromUrl(url), title) << url;
}

TEST(UrlText, LongTextsAreCutBetweenCharacters) {
  EXPECT_EQ(boundedText("a short text"), "a short text");
  std::string longText = "x";
  for (int count = 0; count < 500000; ++count) longText += "\xE6\x97\xA5";
  const std::string bounded = boundedText(longText);
  EXPECT_LE(bounded.size(), 16384U);
  EXPECT_GT(bounded.size(), 16380U);
  EXPECT_TRUE(utf8::is_valid(bounded.begin(), bounded.end()));
  EXPECT_TRUE(longText.starts_with(bounded));
}

}  // namespace
}  // namespace talmo::test
