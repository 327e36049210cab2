#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "nowplaying/Catalogue.h"
#include "nowplaying/CatalogueCandidate.h"
#include "nowplaying/TrackTitle.h"

namespace talmo {
namespace {

using nlohmann::json;

std::string stripped(const std::string& title) {
  return TrackTitle::strippingFeatureSuffix(title);
}

bool matches(const json& entry, const std::string& track, const std::string& artist) {
  return CatalogueCandidate::candidateMatches(entry, track, artist);
}

json entry(const std::string& track, const std::string& artist) {
  return {{"trackName", track}, {"artistName", artist}};
}

/// An entry that is the track "Song" by "Artist".
json song(const std::string& url) {
  json found = entry("Song", "Artist");
  found["artworkUrl100"] = url;
  return found;
}

/// The artwork's URL by an answer with these entries.
std::optional<std::string> artworkURL(const std::vector<json>& results) {
  json answer{{"resultCount", results.size()}};
  answer["results"] = results;
  return Catalogue::artworkURL(answer.dump(), "Song", "Artist");
}

TEST(TrackTitle, LosesItsGuestsInAnyLetterCase) {
  EXPECT_EQ(stripped("Song (feat. Guest)"), "Song");
  EXPECT_EQ(stripped("Song (FEAT. Guest)"), "Song");
  EXPECT_EQ(stripped("Song (Ft. Guest)"), "Song");
  EXPECT_EQ(stripped("Song [feat. Guest]"), "Song");
  EXPECT_EQ(stripped("Song [fT. Guest] (Live)"), "Song");
  EXPECT_EQ(stripped("S\u00f6ng\u00a0(feat. \u00c9ric)"), "S\u00f6ng");
}

TEST(TrackTitle, IsCutAtTheEarliestOfSeveralMarkers) {
  EXPECT_EQ(stripped("Song [ft. A] (feat. B)"), "Song");
  EXPECT_EQ(stripped("Song (feat. A) (ft. B) [feat. C]"), "Song");
  EXPECT_EQ(stripped("Song (ft. A (feat. B))"), "Song");
}

TEST(TrackTitle, StaysWithoutAMarker) {
  EXPECT_EQ(stripped("  Song  "), "Song");
  EXPECT_EQ(stripped("Song feat. Guest"), "Song feat. Guest");
  EXPECT_EQ(stripped("Song (with Guest)"), "Song (with Guest)");
  EXPECT_EQ(stripped("Song ( feat. Guest)"), "Song ( feat. Guest)");
  EXPECT_EQ(stripped("(feat. Guest)"), "");
  EXPECT_EQ(stripped(""), "");
}

TEST(TrackTitle, KeepsItsPlacesWhereLowerCaseIsLonger) {
  EXPECT_EQ(stripped("\u0130\u0130\u0130 (Feat. X)"), "\u0130\u0130\u0130");
}

TEST(CatalogueCandidate, MatchesTheSameTrackInAnyLetterCase) {
  EXPECT_TRUE(matches(entry("Song", "Artist"), "Song", "Artist"));
  EXPECT_TRUE(matches(entry("SONG", "artist"), "song", "ARTIST"));
  EXPECT_TRUE(matches(entry("\u00c4\u00d6", "\u0391\u03a3"), "\u00e4\u00f6", "\u03b1\u03c2"));
}

TEST(CatalogueCandidate, MatchesHoweverTheLettersAreComposed) {
  EXPECT_TRUE(matches(entry("Cafe\u0301", "Bjo\u0308rk"), "Caf\u00e9", "Bj\u00f6rk"));
}

TEST(CatalogueCandidate, ATitleMayBeTheBeginningOfTheOther) {
  EXPECT_TRUE(matches(entry("Song (Remastered)", "Artist"), "Song", "Artist"));
  EXPECT_TRUE(matches(entry("Song", "Artist"), "Song (Remastered)", "Artist"));
  EXPECT_FALSE(matches(entry("A Song", "Artist"), "Song", "Artist"));
  EXPECT_FALSE(matches(entry("Song", "Artist"), "A Song", "Artist"));
}

TEST(CatalogueCandidate, GuestsOfTheEntryDoNotMatter) {
  EXPECT_TRUE(matches(entry("Song (feat. Guest)", "Artist"), "Song", "Artist"));
  EXPECT_TRUE(matches(entry("Song [Ft. Guest]", "Artist"), "song", "Artist"));
}

TEST(CatalogueCandidate, AnArtistMayBeAPartOfTheOther) {
  EXPECT_TRUE(matches(entry("Song", "The Artist & Co"), "Song", "Artist"));
  EXPECT_TRUE(matches(entry("Song", "Artist"), "Song", "Guest, Artist"));
  EXPECT_FALSE(matches(entry("Song", "Artist"), "Song", "Other"));
}

TEST(CatalogueCandidate, BothMustAgree) {
  EXPECT_FALSE(matches(entry("Other", "Artist"), "Song", "Artist"));
  EXPECT_FALSE(matches(entry("Other", "Other"), "Song", "Artist"));
}

TEST(CatalogueCandidate, NeedsTwoTexts) {
  EXPECT_FALSE(matches(json{{"trackName", "Song"}}, "Song", "Artist"));
  EXPECT_FALSE(matches(json{{"artistName", "Artist"}}, "Song", "Artist"));
  EXPECT_FALSE(matches(json{{"trackName", 1}, {"artistName", "Artist"}}, "1", "Artist"));
  EXPECT_FALSE(matches(json{{"trackName", "Song"}, {"artistName", nullptr}}, "Song", "Artist"));
  EXPECT_FALSE(matches(json::array({"Song", "Artist"}), "Song", "Artist"));
  EXPECT_FALSE(matches("Song", "Song", "Artist"));
}

TEST(Catalogue, IsSearchedForTheBareTrackAndTheFirstArtist) {
  EXPECT_EQ(Catalogue::searchURL("Song", "Artist"),
            "https://itunes.apple.com/search?term=Song%20Artist&media=music&entity=song&limit=5");
  EXPECT_EQ(Catalogue::searchURL("One & Two (fEaT. Guest)", " A+B , Guest, Other"),
            "https://itunes.apple.com/search?term=One%20%26%20Two%20A%2BB&media=music&entity=song"
            "&limit=5");
  EXPECT_EQ(Catalogue::searchURL("Caf\u00e9", "\u97f3"),
            "https://itunes.apple.com/search?term=Caf%C3%A9%20%E9%9F%B3&media=music&entity=song"
            "&limit=5");
}

TEST(Catalogue, AnswersWithTheFirstEntryThatCanBeTheTrack) {
  EXPECT_EQ(
      artworkURL({entry("Other", "Artist"), song("https://a/100x100bb.jpg"), song("https://b")}),
      "https://a/300x300bb.jpg");
}

TEST(Catalogue, AsksForTheCardsSizeWhereverTheSizeStands) {
  EXPECT_EQ(artworkURL({song("https://a/100x100/b.100x100.jpg")}),
            "https://a/300x300/b.300x300.jpg");
  EXPECT_EQ(artworkURL({song("https://a/b.jpg")}), "https://a/b.jpg");
}

TEST(Catalogue, HasNoArtworkWhereTheFirstSuchEntryHasNone) {
  EXPECT_EQ(artworkURL({entry("Song", "Artist"), song("https://b")}), std::nullopt);
  json number = entry("Song", "Artist");
  number["artworkUrl100"] = 100;
  EXPECT_EQ(artworkURL({number}), std::nullopt);
}

TEST(Catalogue, HasNoArtworkWithoutAMatch) {
  EXPECT_EQ(artworkURL({}), std::nullopt);
  EXPECT_EQ(artworkURL({entry("Other", "Artist"), 7, nullptr, "Song"}), std::nullopt);
}

TEST(Catalogue, SurvivesAnswersThatAreNone) {
  for (const char* answer : {"", "nonsense", "[]", "{}", "null", "7", "{\"results\":{}}",
                             "{\"results\":null}", "{\"results\":[", "{\"results\":[\"\xff\"]}"}) {
    EXPECT_EQ(Catalogue::artworkURL(answer, "Song", "Artist"), std::nullopt) << answer;
  }
  EXPECT_EQ(Catalogue::artworkURL(std::string(1'000'000, '['), "Song", "Artist"), std::nullopt);
}

}  // namespace
}  // namespace talmo
