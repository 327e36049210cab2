#include <optional>
#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "nowplaying/TidalHistory.h"

namespace talmo {
namespace {

NowPlayingTrack track(const std::string& title) {
  return {.title = title, .artist = "Artist"};
}

/// What is shown: a track's title, or a player's name in brackets.
std::string text(const std::optional<NowPlayingState>& state) {
  if (!state) return "nothing";
  if (const auto* shown = std::get_if<NowPlayingTrack>(&*state)) return shown->title;
  if (const auto* running = std::get_if<RunningNoInfo>(&*state)) {
    return "[" + running->displayName + "]";
  }
  return "idle";
}

TEST(TidalHistory, ATrackThatIsFoundIsShown) {
  TidalHistory history;
  EXPECT_EQ(text(history.found(1, track("A"))), "A");
  EXPECT_EQ(text(history.found(2, track("B"))), "B");
}

TEST(TidalHistory, OneMissIsBridgedAndTheSecondInARowDropsTheTrack) {
  TidalHistory history;
  history.found(1, track("A"));
  EXPECT_EQ(text(history.missed(2, "TIDAL")), "A");
  EXPECT_EQ(text(history.missed(3, "TIDAL")), "[TIDAL]");
  EXPECT_EQ(text(history.missed(4, "TIDAL")), "[TIDAL]");
}

TEST(TidalHistory, AFoundTrackStartsTheCountAnew) {
  TidalHistory history;
  history.found(1, track("A"));
  history.missed(2, "TIDAL");
  history.found(3, track("A"));
  EXPECT_EQ(text(history.missed(4, "TIDAL")), "A");
  EXPECT_EQ(text(history.missed(5, "TIDAL")), "[TIDAL]");
  history.found(6, track("B"));
  EXPECT_EQ(text(history.missed(7, "TIDAL")), "B");
}

TEST(TidalHistory, WithoutATrackBeforeAMissIsNotBridged) {
  TidalHistory history;
  EXPECT_EQ(text(history.missed(1, "TIDAL")), "[TIDAL]");
}

TEST(TidalHistory, TheBridgeKeepsTheArtwork) {
  TidalHistory history;
  NowPlayingTrack shown = track("A");
  shown.artwork = Image{
      .width = 3, .height = 1, .pixels = std::make_shared<const std::vector<std::uint8_t>>(12)};
  history.found(1, shown);
  EXPECT_EQ(std::get<NowPlayingTrack>(*history.missed(2, "TIDAL")).artwork, shown.artwork);
}

TEST(TidalHistory, APollThatEndsAfterALaterOneHasNoSay) {
  TidalHistory history;
  history.found(2, track("B"));
  EXPECT_EQ(text(history.found(1, track("A"))), "nothing");
  EXPECT_EQ(text(history.missed(1, "TIDAL")), "nothing");
  EXPECT_EQ(text(history.missed(3, "TIDAL")), "B");
  EXPECT_EQ(text(history.found(2, track("C"))), "nothing");
  EXPECT_EQ(text(history.missed(4, "TIDAL")), "[TIDAL]");
}

}  // namespace
}  // namespace talmo
