#include <absl/strings/escaping.h>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "nowplaying/AdapterJson.h"
#include "nowplaying/AdapterNowPlaying.h"
#include "nowplaying/ArtworkCache.h"
#include "tests/component/SimulatedWorld.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Snapshot = AdapterNowPlayingSnapshot;

AdapterState state(const std::string& json) {
  return AdapterJson::object(json).value();
}

std::optional<Snapshot> snapshot(const std::string& json) {
  return AdapterNowPlaying::snapshotFrom(
      state(json), [](const std::optional<AdapterText>&) { return std::nullopt; });
}

Image picture(int width) {
  return {
      .width = width,
      .height = 1,
      .pixels = std::make_shared<std::vector<std::uint8_t>>(static_cast<std::size_t>(width) * 4)};
}

Snapshot song() {
  return {.bundleID = "com.spotify.client",
          .parentBundleID = "com.spotify",
          .title = "Song",
          .artist = "Artist",
          .album = "Album",
          .isPlaying = true,
          .elapsedTime = 1.5,
          .duration = 200.0,
          .artwork = picture(1)};
}

TEST(AdapterApplying, AFullStateReplacesEverything) {
  EXPECT_EQ(AdapterNowPlaying::applying(state(R"({"title":"b"})"), false,
                                        state(R"({"title":"a","album":"c"})")),
            state(R"({"title":"b"})"));
  EXPECT_EQ(AdapterNowPlaying::applying(state("{}"), false, state(R"({"title":"a"})")),
            state("{}"));
}

TEST(AdapterApplying, AFullStateKeepsItsNulls) {
  EXPECT_EQ(AdapterNowPlaying::applying(state(R"({"album":null})"), false, state("{}")),
            state(R"({"album":null})"));
}

TEST(AdapterApplying, ADifferenceInsertsAndReplaces) {
  EXPECT_EQ(AdapterNowPlaying::applying(state(R"({"title":"b","x":[1]})"), true,
                                        state(R"({"title":"a","album":"c"})")),
            state(R"({"title":"b","album":"c","x":[1]})"));
  EXPECT_EQ(AdapterNowPlaying::applying(state("{}"), true, state(R"({"title":"a"})")),
            state(R"({"title":"a"})"));
}

TEST(AdapterApplying, ANullInADifferenceRemovesItsKey) {
  EXPECT_EQ(AdapterNowPlaying::applying(state(R"({"album":null,"nobody":null})"), true,
                                        state(R"({"title":"a","album":"c"})")),
            state(R"({"title":"a"})"));
}

TEST(AdapterSnapshot, ReadsEveryKey) {
  const auto read = snapshot(R"({"bundleIdentifier":"com.apple.WebKit.GPU",
      "parentApplicationBundleIdentifier":"com.apple.Safari","title":"Song","artist":"Artist",
      "album":"Album","playing":true,"elapsedTime":1.5,"duration":200,"other":{}})");
  Snapshot expected = song();
  expected.bundleID = "com.apple.WebKit.GPU";
  expected.parentBundleID = "com.apple.Safari";
  expected.artwork.reset();
  EXPECT_EQ(read, expected);
}

TEST(AdapterSnapshot, NeedsAnOwnerATitleAndAPlayingFlag) {
  EXPECT_TRUE(snapshot(R"({"bundleIdentifier":"a","title":"t","playing":false})").has_value());
  for (const char* incomplete :
       {"{}", R"({"title":"t","playing":true})", R"({"bundleIdentifier":"a","playing":true})",
        R"({"bundleIdentifier":"a","title":"t"})",
        R"({"bundleIdentifier":"a","title":"","playing":true})",
        R"({"bundleIdentifier":1,"title":"t","playing":true})",
        R"({"bundleIdentifier":null,"title":"t","playing":true})",
        R"({"bundleIdentifier":"a","title":["t"],"playing":true})",
        R"({"bundleIdentifier":"a","title":"t","playing":1})",
        R"({"bundleIdentifier":"a","title":"t","playing":"true"})"}) {
    EXPECT_EQ(snapshot(incomplete), std::nullopt) << incomplete;
  }
}

TEST(AdapterSnapshot, TakesAnOptionalValueOfAnotherTypeForAbsent) {
  const auto read = snapshot(R"({"bundleIdentifier":"a","title":"t","playing":true,
      "parentApplicationBundleIdentifier":1,"artist":true,"album":{},"elapsedTime":"1",
      "duration":true,"artworkData":5})");
  EXPECT_EQ(read, (Snapshot{.bundleID = "a", .title = "t", .isPlaying = true}));
  EXPECT_EQ(read->artist, "");
}

TEST(AdapterSnapshot, HandsTheArtworksTextToTheDecoder) {
  std::vector<std::optional<std::string>> seen;
  const AdapterNowPlaying::ArtworkDecoder decoder = [&](const std::optional<AdapterText>& text) {
    seen.push_back(text ? std::optional(std::string(text->view())) : std::nullopt);
    return std::optional(picture(7));
  };
  const std::string rest = R"("bundleIdentifier":"a","title":"t","playing":true})";
  const auto read =
      AdapterNowPlaying::snapshotFrom(state(R"({"artworkData":"QUJD",)" + rest), decoder);
  EXPECT_EQ(read->artwork->width, 7);
  AdapterNowPlaying::snapshotFrom(state("{" + rest), decoder);
  AdapterNowPlaying::snapshotFrom(state(R"({"artworkData":true,)" + rest), decoder);
  EXPECT_THAT(seen, ElementsAre("QUJD", std::nullopt, std::nullopt));
  // Without a snapshot there is nothing to decode for.
  AdapterNowPlaying::snapshotFrom(state(R"({"artworkData":"QUJD"})"), decoder);
  EXPECT_EQ(seen.size(), 3U);
}

TEST(AdapterArtwork, IsDecodedFromBase64) {
  const SimulatedWorld world;
  const auto decoded = AdapterNowPlaying::decodedArtwork(
      AdapterText(absl::Base64Escape(SimulatedImageDecoder::encode(3, 2, "cover"))));
  ASSERT_TRUE(decoded.has_value());
  EXPECT_EQ(decoded->width, 3);
  EXPECT_EQ(decoded->height, 2);
}

TEST(AdapterArtwork, IsNoneForNoTextNoBase64AndNoImage) {
  const SimulatedWorld world;
  EXPECT_FALSE(AdapterNowPlaying::decodedArtwork(std::nullopt).has_value());
  std::string damaged = absl::Base64Escape(SimulatedImageDecoder::encode(3, 2, "cover"));
  damaged[4] = '*';
  for (const std::string& text : {std::string(), std::string("?"), std::string("A"), damaged,
                                  absl::Base64Escape("no image")}) {
    EXPECT_FALSE(AdapterNowPlaying::decodedArtwork(AdapterText(text)).has_value()) << text;
  }
}

TEST(AdapterSnapshotEquality, ComparesEveryField) {
  EXPECT_EQ(song(), song());
  const auto differs = [](auto change) {
    Snapshot other = song();
    change(other);
    return !(other == song()) && !(song() == other);
  };
  EXPECT_TRUE(differs([](Snapshot& other) { other.bundleID = "x"; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.parentBundleID.reset(); }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.title = "x"; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.artist = "x"; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.album = ""; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.album.reset(); }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.isPlaying = false; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.elapsedTime = 1.6; }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.elapsedTime.reset(); }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.duration.reset(); }));
  EXPECT_TRUE(differs([](Snapshot& other) { other.artwork.reset(); }));
}

TEST(AdapterSnapshotEquality, DoesNotLookAtThePicture) {
  Snapshot other = song();
  other.artwork = picture(2);
  EXPECT_EQ(other, song());
}

TEST(AdapterSnapshotEquality, NeverHoldsForNotANumber) {
  Snapshot other = song();
  other.elapsedTime = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(other == other);
}

TEST(ArtworkCache, DecodesATextOnce) {
  ArtworkCache cache;
  int decodes = 0;
  const auto decode = [&](const std::optional<AdapterText>&) {
    return std::optional(picture(++decodes));
  };
  EXPECT_EQ(cache.image(AdapterText("a"), decode)->width, 1);
  EXPECT_EQ(cache.image(AdapterText("a"), decode)->width, 1);
  EXPECT_EQ(cache.image(AdapterText("b"), decode)->width, 2);
  // One entry: the first is forgotten.
  EXPECT_EQ(cache.image(AdapterText("a"), decode)->width, 3);
}

TEST(ArtworkCache, KeepsItsEntryBesideAbsentAndFailedOnes) {
  ArtworkCache cache;
  int decodes = 0;
  const auto decode = [&](const std::optional<AdapterText>& text) -> std::optional<Image> {
    ++decodes;
    return text->view() == "good" ? std::optional(picture(5)) : std::nullopt;
  };
  EXPECT_TRUE(cache.image(AdapterText("good"), decode).has_value());
  EXPECT_FALSE(cache.image(std::nullopt, decode).has_value());
  EXPECT_FALSE(cache.image(AdapterText("bad"), decode).has_value());
  EXPECT_FALSE(cache.image(AdapterText("bad"), decode).has_value());
  EXPECT_EQ(decodes, 3);
  EXPECT_EQ(cache.image(AdapterText("good"), decode)->width, 5);
  EXPECT_EQ(decodes, 3);
}

}  // namespace
}  // namespace talmo::test
