#include <absl/strings/escaping.h>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "adapter/MediaSession.h"
#include "adapter/SessionFields.h"

namespace talmo::test {
namespace {

using nlohmann::json;

const std::string replacement = "\xEF\xBF\xBD";

std::string textOf(const std::optional<MediaSession>& session) {
  const SessionFields fields = SessionFields::of(session);
  std::string text;
  appendObject(text, fields.values, fields.artwork.get());
  return text;
}

std::string titleOf(const std::string& title) {
  return json::parse(textOf(MediaSession{.bundleIdentifier = "a", .title = title})).at("title");
}

TEST(SessionFields, AreAnEmptyObjectWithoutASession) {
  EXPECT_EQ(textOf(std::nullopt), "{}");
}

TEST(SessionFields, HoldAllThatASessionHas) {
  const std::string image("\x89PNG\0\xff\xfe?>", 9);
  const json read = json::parse(textOf(MediaSession{
      .bundleIdentifier = "com.apple.WebKit.GPU",
      .parentApplicationBundleIdentifier = "com.apple.Safari",
      .trackIdentifier = "/track/1",
      .title = "Title \"quoted\" \\ / \t\n\x01",
      .artist = "Artist",
      .album = "Album",
      .isPlaying = true,
      .elapsedTime = 0.1,
      .duration = 1234.5,
      .artwork = std::make_shared<std::string>(image),
  }));
  std::string artwork;
  ASSERT_TRUE(absl::Base64Unescape(read.at("artworkData").get<std::string>(), &artwork));
  EXPECT_EQ(artwork, image);
  EXPECT_EQ(read, json({{"bundleIdentifier", "com.apple.WebKit.GPU"},
                        {"parentApplicationBundleIdentifier", "com.apple.Safari"},
                        {"title", "Title \"quoted\" \\ / \t\n\x01"},
                        {"artist", "Artist"},
                        {"album", "Album"},
                        {"playing", true},
                        {"elapsedTime", 0.1},
                        {"duration", 1234.5},
                        {"artworkData", read.at("artworkData")}}));
}

TEST(SessionFields, LeaveOutWhatIsAbsent) {
  EXPECT_EQ(json::parse(textOf(MediaSession{.bundleIdentifier = "a", .title = "b"})),
            json({{"bundleIdentifier", "a"}, {"title", "b"}, {"playing", false}}));
  EXPECT_EQ(
      json::parse(textOf(MediaSession{
          .bundleIdentifier = "a", .title = "b", .artwork = std::make_shared<std::string>()})),
      json({{"bundleIdentifier", "a"}, {"title", "b"}, {"playing", false}}));
}

TEST(SessionFields, HaveATitleAlways) {
  EXPECT_EQ(titleOf(""), "");
}

TEST(SessionFields, LeaveOutNumbersThatAreNone) {
  for (const double number :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(
        json::parse(textOf(MediaSession{
            .bundleIdentifier = "a", .title = "b", .elapsedTime = number, .duration = number})),
        json({{"bundleIdentifier", "a"}, {"title", "b"}, {"playing", false}}))
        << number;
  }
}

TEST(SessionFields, KeepEveryFiniteNumberExactly) {
  for (const double number : {0.0, -1.5, 1.0 / 3, 1e-300, std::numeric_limits<double>::max(),
                              std::numeric_limits<double>::denorm_min()}) {
    const json read = json::parse(
        textOf(MediaSession{.bundleIdentifier = "a", .title = "b", .elapsedTime = number}));
    EXPECT_EQ(read.at("elapsedTime").get<double>(), number);
  }
}

TEST(SessionFields, ReplaceWhatIsNotText) {
  struct Row {
    std::string bytes;
    std::string expected;
  };
  const std::vector<Row> rows{
      {"caf\xC3\xA9", "caf\xC3\xA9"},
      {"caf\xE9", "caf" + replacement},
      {"\xC3", replacement},
      {"a\x80z", "a" + replacement + "z"},
      {"\xF0\x9F\x8E\xB5", "\xF0\x9F\x8E\xB5"},
      {"\xF0\x9F\x8E", replacement},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
  };
  for (const auto& [bytes, expected] : rows) EXPECT_EQ(titleOf(bytes), expected);
  // Half of a pair, a character written longer than need be, and one beyond the last.
  for (const std::string bytes : {"\xED\xA0\x80", "\xC0\xAF", "\xF4\x90\x80\x80"}) {
    const std::string title = titleOf(bytes);
    EXPECT_EQ(title.substr(0, 3), replacement);
    EXPECT_EQ(title.size() % 3, 0U);
  }
}

TEST(SessionFields, ReplaceInEveryText) {
  const json read = json::parse(textOf(MediaSession{.bundleIdentifier = "\xff",
                                                    .parentApplicationBundleIdentifier = "\xff",
                                                    .title = "\xff",
                                                    .artist = "\xff",
                                                    .album = "\xff"}));
  for (const char* key :
       {"bundleIdentifier", "parentApplicationBundleIdentifier", "title", "artist", "album"}) {
    EXPECT_EQ(read.at(key), replacement) << key;
  }
}

TEST(SessionFields, CutALongTextBetweenCharacters) {
  constexpr std::size_t limit = SessionFields::longestText;
  EXPECT_EQ(titleOf(std::string(limit, 'x')), std::string(limit, 'x'));
  EXPECT_EQ(titleOf(std::string(8U << 20U, 'x')), std::string(limit, 'x'));
  for (const std::string character : {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x8E\xB5"}) {
    for (std::size_t before = 0; before < 4; ++before) {
      std::string whole(before, 'x');
      while (whole.size() + character.size() <= limit) whole += character;
      EXPECT_EQ(titleOf(whole + character + character), whole);
    }
  }
  // Nothing but ends of characters.
  EXPECT_EQ(titleOf(std::string(1U << 20U, '\x80')).substr(0, 3), replacement);
}

TEST(SessionFields, FitIntoAPipeWithoutArtwork) {
  for (const char byte : {'\x01', '"', '\xff', 'x'}) {
    const std::string text(100'000, byte);
    EXPECT_LT(textOf(MediaSession{.bundleIdentifier = text,
                                  .parentApplicationBundleIdentifier = text,
                                  .title = text,
                                  .artist = text,
                                  .album = text,
                                  .elapsedTime = -1.2345678901234567e-300,
                                  .duration = -1.2345678901234567e-300})
                  .size(),
              65536U);
  }
}

TEST(SessionFields, WriteBase64AsItIs) {
  // These bytes give the characters beyond letters and digits.
  const MediaSession session{
      .bundleIdentifier = "a",
      .title = "b",
      .artwork = std::make_shared<std::string>("\xFB\xFF\xBF\xFF"),
  };
  EXPECT_NE(textOf(session).find(R"("artworkData":"+/+//w==")"), std::string::npos);
}

TEST(SessionFields, TakeArtworkAsAnObjectsOnlyMember) {
  std::string text = "before";
  const std::string bytes = "abc";
  appendObject(text, json::object(), &bytes);
  EXPECT_EQ(text, R"(before{"artworkData":"YWJj"})");
}

}  // namespace
}  // namespace talmo::test
