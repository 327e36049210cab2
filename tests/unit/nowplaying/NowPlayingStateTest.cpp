#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "nowplaying/NowPlaying.h"

namespace talmo {
namespace {

Image picture(std::uint8_t colour) {
  return {.width = 1,
          .height = 1,
          .pixels = std::make_shared<const std::vector<std::uint8_t>>(4, colour)};
}

NowPlayingState track(const std::string& title, const std::string& artist = "Artist",
                      bool isPlaying = true) {
  return NowPlayingTrack{.title = title, .artist = artist, .isPlaying = isPlaying};
}

TEST(NowPlayingState, TracksAreComparedWithoutTheirArtworks) {
  NowPlayingTrack with{.title = "Song", .artist = "Artist", .artwork = picture(1)};
  with.isPlaying = true;
  EXPECT_EQ(NowPlayingState(with), track("Song"));
  EXPECT_NE(track("Song"), track("Other"));
  EXPECT_NE(track("Song"), track("Song", "Other"));
  EXPECT_NE(track("Song"), track("Song", "Artist", false));
}

TEST(NowPlayingState, TheOtherCasesAreComparedByTheirNames) {
  EXPECT_EQ(NowPlayingState(RunningNoInfo{"VLC"}), NowPlayingState(RunningNoInfo{"VLC"}));
  EXPECT_NE(NowPlayingState(RunningNoInfo{"VLC"}), NowPlayingState(RunningNoInfo{"Vox"}));
  EXPECT_EQ(NowPlayingState(NowPlayingIdle{}), NowPlayingState());
  EXPECT_NE(NowPlayingState(RunningNoInfo{""}), NowPlayingState());
  EXPECT_NE(NowPlayingState(RunningNoInfo{"Song"}), track("Song"));
}

TEST(NowPlayingState, OnlyADowngradeWithinTheWarmupIsBlocked) {
  const std::vector<NowPlayingState> states{NowPlayingIdle{}, track("Song"), RunningNoInfo{"VLC"}};
  for (const NowPlayingState& current : states) {
    for (const NowPlayingState& next : states) {
      const bool isDowngrade = current == track("Song") && next != track("Song");
      EXPECT_EQ(NowPlaying::warmupBlocksDowngrade(current, next, true), isDowngrade);
      EXPECT_FALSE(NowPlaying::warmupBlocksDowngrade(current, next, false));
    }
  }
  EXPECT_FALSE(NowPlaying::warmupBlocksDowngrade(track("Song"), track("Other"), true));
}

TEST(Image, IsTheSameByItsPixels) {
  EXPECT_EQ(picture(1), picture(1));
  EXPECT_NE(picture(1), picture(2));
  const auto pixels = std::make_shared<const std::vector<std::uint8_t>>(16);
  EXPECT_NE((Image{.width = 4, .height = 1, .pixels = pixels}),
            (Image{.width = 2, .height = 2, .pixels = pixels}));
}

}  // namespace
}  // namespace talmo
