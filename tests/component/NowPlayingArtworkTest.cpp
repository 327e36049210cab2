// Artworks that come from elsewhere, and answers that come too late.

#include <absl/strings/escaping.h>
#include <chrono>
#include <utility>

#include <gmock/gmock.h>

#include "tests/component/NowPlayingTest.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// Longer than what is done meanwhile takes on a busy machine.
constexpr Duration late = 1500ms;

}  // namespace

TEST_P(NowPlayingTest, ATrackWithoutAnArtworkGetsTheCatalogues) {
  setCatalogue({{.title = "Song", .width = 7}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song 7"));
  EXPECT_THAT(tracks(), ElementsAre("Song", "Song 7"));
  EXPECT_THAT(requests(),
              ElementsAre("https://itunes.apple.com/search?term=Song%20Artist&media=music&"
                          "entity=song&limit=5",
                          artworkURL("Song")));
}

TEST_P(NowPlayingTest, TheSystemsTrackWithoutAnArtworkGetsTheCataloguesToo) {
  machine().network().setReplies([](const std::string& url) {
    if (url == artworkURL("Song")) return Reply{.result = {.status = 200, .body = artwork(7)}};
    const std::string answer =
        R"json({"results":[{"trackName":"Song (feat. Guest)","artistName":"Anyone",)json"
        R"json("artworkUrl100":"https://artworks.test/Song.jpg"}]})json";
    return Reply{.result = {.status = 200, .body = answer}};
  });
  setTarget("vlc");
  setSystem(launch(vlc), "Song (FEAT. Guest)");
  start();
  ASSERT_TRUE(runUntilShown("Song (FEAT. Guest) 7"));
  EXPECT_EQ(requests().front(),
            "https://itunes.apple.com/search?term=Song%20&media=music&entity=song&limit=5");
}

TEST_P(NowPlayingTest, ATrackWithAnArtworkOfItsOwnIsNotLookedUp) {
  setCatalogue({{.title = "Song", .width = 7}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song", ",\"artworkData\":\"" + absl::Base64Escape(artwork(3)) + "\"");
  ASSERT_TRUE(runUntilShown("Song 3"));
  EXPECT_TRUE(logs("adapter now-playing: Song \u2014 Artist (art: true, playing: true)"));
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_P(NowPlayingTest, AnArtworkThatThePlayerTellsLaterIsShown) {
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  stream(vlc, "Song", ",\"artworkData\":\"" + absl::Base64Escape(artwork(3)) + "\"");
  ASSERT_TRUE(runUntilShown("Song 3"));
}

TEST_P(NowPlayingTest, TheArtworkAtHandIsNotFetchedAgain) {
  setCatalogue({{.title = "Song", .width = 7}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song 7"));
  stream(vlc, "Song", R"(,"playing":false)");
  ASSERT_TRUE(runUntilShown("Song 7 (paused)"));
  stream(vlc, "Song", R"(,"playing":true)");
  ASSERT_TRUE(runUntilShown("Song 7"));
  EXPECT_EQ(requests().size(), 2U);
}

TEST_P(NowPlayingTest, OneArtworkIsAtHandAndTheNextTakesItsPlace) {
  setCatalogue({{.title = "One", .width = 1}, {.title = "Two", .width = 2}});
  setTarget("vlc");
  launch(vlc);
  start();
  for (const auto& [title, width] : {std::pair{"One", "1"}, {"Two", "2"}, {"One", "1"}}) {
    stream(vlc, title);
    ASSERT_TRUE(runUntilShown(std::string(title) + " " + width));
  }
  EXPECT_THAT(requests(), ElementsAre(searchURL("One"), artworkURL("One"), searchURL("Two"),
                                      artworkURL("Two"), searchURL("One"), artworkURL("One")));
}

TEST_P(NowPlayingTest, PollsDuringALookupShareIt) {
  setCatalogue({{.title = "Song", .width = 7, .delay = 300ms}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  for (int elapsed = 1; elapsed <= 3; ++elapsed) {
    stream(vlc, "Song", ",\"elapsedTime\":" + std::to_string(elapsed));
  }
  ASSERT_TRUE(runUntilShown("Song 7"));
  EXPECT_THAT(requests(), ElementsAre(searchURL("Song"), artworkURL("Song")));
}

TEST_P(NowPlayingTest, AFailedLookupIsSilentAndTriedAgain) {
  const std::vector<NetworkResult> failures = {
      {.error = "the network connection was lost"},
      {.status = 200, .body = "no JSON"},
      {.status = 200, .body = R"({"results":[]})"},
      {.status = 200, .body = R"({"results":[{"trackName":"Song","artistName":"Artist"}]})"},
      // Its artwork is no picture, or the address of none.
      {.status = 200,
       .body = R"({"results":[{"trackName":"Song","artistName":"Artist",)"
               R"("artworkUrl100":"https://artworks.test/nothing"}]})"},
      {.status = 200,
       .body = R"({"results":[{"trackName":"Song","artistName":"Artist",)"
               R"("artworkUrl100":"file:///etc/passwd"}]})"}};
  setTarget("vlc");
  launch(vlc);
  start();
  int elapsed = 0;
  for (const NetworkResult& failure : failures) {
    machine().network().setReplies([failure](const std::string& url) {
      if (url == searchURL("Song")) return Reply{.result = failure, .delay = 1ms};
      return Reply{.result = {.status = 404, .body = "no picture"}, .delay = 1ms};
    });
    const std::size_t before = requests().size();
    stream(vlc, "Song", ",\"elapsedTime\":" + std::to_string(++elapsed));
    ASSERT_TRUE(runUntil([&] { return requests().size() > before; }));
  }
  setCatalogue({{.title = "Song", .width = 7}});
  ASSERT_TRUE(runUntilShown("Song 7"));
  EXPECT_THAT(tracks(), ElementsAre("Song", "Song 7"));
  EXPECT_THAT(machine().log().messages(LogLevel::error), IsEmpty());
}

TEST_P(NowPlayingTest, SpotifysArtworkIsFetchedFromItsURLAndKept) {
  setCatalogue({{.title = "Cover", .width = 8}});
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(
      spotify, Track{.name = "Song", .artist = "Artist", .artworkUrl = artworkURL("Cover")});
  start();
  ASSERT_TRUE(runUntilShown("Song 8 (paused)"));
  machine().applications().setTrack(
      spotify, Track{.name = "Other", .artist = "Artist", .artworkUrl = artworkURL("Cover")});
  poke();
  ASSERT_TRUE(runUntilShown("Other 8 (paused)"));
  EXPECT_THAT(requests(), ElementsAre(artworkURL("Cover")));
}

TEST_P(NowPlayingTest, AnArtworkOfSpotifysThatCannotBeFetchedIsLogged) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify,
                                    Track{.name = "Song", .artworkUrl = artworkURL("Cover")});
  start();
  ASSERT_TRUE(runUntil([&] { return !machine().log().messages(LogLevel::error).empty(); }));
  EXPECT_EQ(machine().log().messages(LogLevel::error).front(),
            "Artwork fetch failed: the network connection was lost");
  ASSERT_TRUE(runUntilShown("Song (paused)"));
}

TEST_P(NowPlayingTest, AnAnswerForAnEarlierTrackIsNotShown) {
  setCatalogue({{.title = "One", .width = 1, .delay = late}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "One");
  ASSERT_TRUE(runUntil([&] { return requests().size() == 1; }));
  stream(vlc, "Two");
  ASSERT_TRUE(runUntilShown("Two"));
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 1; }));
  ASSERT_TRUE(world().runMainQueue());
  stream(vlc, "Three");
  ASSERT_TRUE(runUntilShown("Three"));
  EXPECT_THAT(tracks(), ElementsAre("One", "Two", "Three"));
}

TEST_P(NowPlayingTest, AnswersOutOfOrderGoToTheirOwnTracks) {
  setCatalogue({{.title = "One", .width = 1, .delay = late}, {.title = "Two", .width = 2}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "One");
  ASSERT_TRUE(runUntil([&] { return requests().size() == 1; }));
  stream(vlc, "Two");
  ASSERT_TRUE(runUntilShown("Two 2"));
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 2; }));
  ASSERT_TRUE(world().runMainQueue());
  stream(vlc, "Three");
  ASSERT_TRUE(runUntilShown("Three"));
  EXPECT_THAT(tracks(), ElementsAre("One", "Two", "Two 2", "Three"));
}

TEST_P(NowPlayingTest, AnAnswerForAnEarlierTargetIsNotShown) {
  setCatalogue({{.title = "Song", .width = 1, .delay = late}});
  setTarget("spotify");
  launch(spotify);
  launch(vlc);
  start();
  stream(spotify, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  // The target is another one, and no poll has found that out.
  setTarget("vlc");
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 1; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(shown(), "Song");
  EXPECT_THAT(history(), Not(Contains("Song 1")));
}

TEST_P(NowPlayingTest, AnAnswerAfterTheEndOfPollingIsNotShown) {
  setCatalogue({{.title = "Song", .width = 1, .delay = late}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntil([&] { return requests().size() == 1; }));
  nowPlaying().stopPolling();
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 1; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(shown(), "Song");
}

TEST_P(NowPlayingTest, ALateAnswerOfTidalsIsNeitherShownNorRemembered) {
  setCatalogue({{.title = "One", .width = 1, .delay = late}, {.title = "Two", .width = 2}});
  setTarget("tidal");
  const ProcessIdentifier process = launch(tidal);
  machine().applications().setWindowTitles(process, {"One - Artist"});
  startWarm();
  ASSERT_TRUE(runUntilShown("One 1 (paused)"));
  machine().applications().setWindowTitles(process, {"Two - Artist"});
  poke();
  ASSERT_TRUE(runUntilShown("Two 2 (paused)"));
  // The artwork of the first track is not at hand any more, so that it is late again.
  machine().applications().setWindowTitles(process, {"One - Artist"});
  poke();
  ASSERT_TRUE(runUntil([&] { return requests().size() == 5; }));
  machine().applications().setWindowTitles(process, {"Two - Artist"});
  pokeTidal();
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 3; }));
  ASSERT_TRUE(world().runMainQueue());
  // What a poll without a track goes back to is the second track.
  machine().applications().setWindowTitles(process, {});
  pokeTidal();
  ASSERT_TRUE(world().runMainQueue());
  pokeTidal();
  ASSERT_TRUE(runUntilShown("[TIDAL]"));
  EXPECT_THAT(history(), ElementsAre("One 1 (paused)", "Two 2 (paused)", "[TIDAL]"));
}

TEST_P(NowPlayingTest, AnAnswerOfTidalsAfterTheEndOfPollingIsNotRememberedEither) {
  setCatalogue({{.title = "Song", .width = 1, .delay = late}});
  setTarget("tidal");
  const ProcessIdentifier process = launch(tidal);
  machine().applications().setWindowTitles(process, {"Song - Artist"});
  start();
  ASSERT_TRUE(runUntil([&] { return requests().size() == 1; }));
  nowPlaying().stopPolling();
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 1; }));
  ASSERT_TRUE(world().runMainQueue());
  machine().applications().setWindowTitles(process, {});
  start();
  ASSERT_TRUE(runUntilShown("[TIDAL]"));
  EXPECT_THAT(history(), ElementsAre("[TIDAL]"));
}

TEST_P(NowPlayingTest, TheSystemsAnswerForAnEarlierTargetIsNotShown) {
  setTarget("spotify");
  setSystem(launch(spotify), "Song");
  launch(vlc);
  machine().mediaRemote().setAnswerDelay(500ms);
  start();
  ASSERT_TRUE(runUntil(
      [&] { return machine().mediaRemote().calls(SimulatedMediaRemote::infoFunction) == 1; }));
  setTarget("vlc");
  poke();
  ASSERT_TRUE(runUntilShown("[VLC]"));
  EXPECT_THAT(history(), ElementsAre("[VLC]"));
}

TEST_P(NowPlayingTest, WhatItAskedForMayBeAnsweredWhenItHasGone) {
  setCatalogue({{.title = "Song", .width = 1, .delay = late}});
  setTarget("vlc");
  const ProcessIdentifier process = launch(vlc);
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song", .artist = "Artist"});
  machine().mediaRemote().setAnswerDelay(50ms);
  start();
  stream(spotify, "Song");
  ASSERT_TRUE(runUntil([&] { return requests().size() == 1; }));
  streamNothing();
  poke();
  drop();
  EXPECT_FALSE(machine().mediaRemote().isRegistered());
  setSystem(process, "Another");
  ASSERT_TRUE(runUntil([&] { return machine().imageDecoder().decodes() >= 1; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_THAT(tracks(), ElementsAre("Song"));
}

}  // namespace talmo::test
