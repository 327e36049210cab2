#include "tests/component/SystemNowPlayingTest.h"

#include <array>

#include <gtest/gtest.h>

namespace talmo::test {
namespace {

using Remote = SimulatedMediaRemote;

constexpr std::array functions = {Remote::infoFunction, Remote::processFunction,
                                  Remote::isPlayingFunction, Remote::registerFunction,
                                  Remote::unregisterFunction};

}  // namespace

std::optional<SystemNowPlayingInfo> SystemNowPlayingTest::read() {
  std::optional<SystemNowPlayingInfo> info;
  int completions = 0;
  SystemNowPlaying::shared()->read([&](const auto& result) {
    EXPECT_TRUE(machine().dispatch().isMainThread());
    info = result;
    ++completions;
  });
  EXPECT_TRUE(runUntil([&] { return completions > 0; }));
  EXPECT_TRUE(world().runMainQueue());
  EXPECT_EQ(completions, 1);
  return info;
}

TEST_P(SystemNowPlayingTest, IsOneObject) {
  ASSERT_NE(SystemNowPlaying::shared(), nullptr);
  EXPECT_EQ(SystemNowPlaying::shared(), SystemNowPlaying::shared());
}

TEST_P(SystemNowPlayingTest, IsNoneWithoutAnyOneOfTheFunctionsForGood) {
  // One world for each function, as the first answer holds.
  for (const char* missing : functions) {
    machine().states().clear();
    remote().setHasFunction(missing, false);
    EXPECT_EQ(SystemNowPlaying::shared(), nullptr) << missing;
    remote().setHasFunction(missing, true);
    EXPECT_EQ(SystemNowPlaying::shared(), nullptr) << missing;
  }
}

TEST_P(SystemNowPlayingTest, ReadsTheTrackAndItsOwner) {
  remote().setProcess(machine().applications().launch("com.spotify.client"));
  remote().setInfo(
      MediaRemoteInfo{{titleKey, "Song"},
                      {artistKey, "Artist"},
                      {artworkKey, MediaRemoteData{SimulatedImageDecoder::encode(4, 3, "cover")}},
                      {rateKey, 1.0}});
  const auto info = read();
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->bundleID, "com.spotify.client");
  EXPECT_EQ(info->title, "Song");
  EXPECT_EQ(info->artist, "Artist");
  EXPECT_EQ(info->artwork->width, 4);
  EXPECT_TRUE(info->isPlaying);
}

TEST_P(SystemNowPlayingTest, APlaybackRateOfZeroIsNotPlayingWithoutAsking) {
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}, {rateKey, 0.0}});
  remote().setIsPlaying(true);
  EXPECT_FALSE(read()->isPlaying);
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}, {rateKey, -1.0}});
  EXPECT_FALSE(read()->isPlaying);
  EXPECT_EQ(remote().calls(Remote::isPlayingFunction), 0);
}

TEST_P(SystemNowPlayingTest, WithoutAPlaybackRateItAsks) {
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}});
  remote().setIsPlaying(true);
  EXPECT_TRUE(read()->isPlaying);
  remote().setIsPlaying(false);
  EXPECT_FALSE(read()->isPlaying);
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}, {rateKey, "1"}});
  remote().setIsPlaying(true);
  EXPECT_TRUE(read()->isPlaying);
  EXPECT_EQ(remote().calls(Remote::isPlayingFunction), 3);
}

TEST_P(SystemNowPlayingTest, WithoutAnOwningApplicationThereIsNoBundleIdentifier) {
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}, {rateKey, 1.0}});
  for (const ProcessIdentifier process : {0, -1, 4711}) {
    remote().setProcess(process);
    const auto info = read();
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->bundleID, std::nullopt) << process;
  }
}

TEST_P(SystemNowPlayingTest, WithoutATitleThereIsNothing) {
  EXPECT_FALSE(read().has_value());
  for (const MediaRemoteInfo& info :
       {MediaRemoteInfo{}, MediaRemoteInfo{{rateKey, 1.0}, {artistKey, "Artist"}},
        MediaRemoteInfo{{titleKey, ""}, {rateKey, 1.0}},
        MediaRemoteInfo{{titleKey, 5.0}, {rateKey, 1.0}}}) {
    remote().setInfo(info);
    EXPECT_FALSE(read().has_value());
  }
}

TEST_P(SystemNowPlayingTest, MissingAndUnreadableValuesHaveDefaults) {
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}, {rateKey, 1.0}});
  EXPECT_EQ(read()->artist, "");
  EXPECT_FALSE(read()->artwork.has_value());
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"},
                                   {artistKey, 5.0},
                                   {artworkKey, MediaRemoteData{"no image"}},
                                   {rateKey, 1.0}});
  EXPECT_EQ(read()->artist, "");
  EXPECT_FALSE(read()->artwork.has_value());
  remote().setInfo(MediaRemoteInfo{
      {titleKey, "Song"}, {artworkKey, SimulatedImageDecoder::encode(4, 3, "a")}, {rateKey, 1.0}});
  EXPECT_FALSE(read()->artwork.has_value());
}

TEST_P(SystemNowPlayingTest, ObservesEachOfTheThreeChangesOnTheMainThread) {
  int changes = 0;
  SystemNowPlaying::shared()->startObserving([&] {
    EXPECT_TRUE(machine().dispatch().isMainThread());
    ++changes;
  });
  EXPECT_TRUE(remote().isRegistered());
  remote().setInfo(MediaRemoteInfo{{titleKey, "Song"}});
  ASSERT_TRUE(runUntil([&] { return changes == 1; }));
  remote().setProcess(5);
  ASSERT_TRUE(runUntil([&] { return changes == 2; }));
  remote().setIsPlaying(true);
  ASSERT_TRUE(runUntil([&] { return changes == 3; }));
}

TEST_P(SystemNowPlayingTest, ASecondStartAddsNoObservers) {
  int first = 0;
  int second = 0;
  SystemNowPlaying::shared()->startObserving([&] { ++first; });
  SystemNowPlaying::shared()->startObserving([&] { ++second; });
  EXPECT_EQ(remote().calls(Remote::registerFunction), 1);
  remote().setIsPlaying(true);
  ASSERT_TRUE(runUntil([&] { return first > 0; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 0);
}

TEST_P(SystemNowPlayingTest, ObservesNoMoreOnceStoppedAndAgainAfterARestart) {
  int changes = 0;
  SystemNowPlaying::shared()->startObserving([&] { ++changes; });
  SystemNowPlaying::shared()->stopObserving();
  EXPECT_FALSE(remote().isRegistered());
  EXPECT_EQ(remote().calls(Remote::unregisterFunction), 1);
  machine().notifications().post(*remote().stringConstant(Remote::infoConstant));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(changes, 0);
  SystemNowPlaying::shared()->startObserving([&] { ++changes; });
  EXPECT_TRUE(remote().isRegistered());
  remote().setIsPlaying(true);
  ASSERT_TRUE(runUntil([&] { return changes == 1; }));
}

TEST_P(SystemNowPlayingTest, ObservesByTheTextsThatTheConstantsHold) {
  remote().setStringConstant(Remote::infoConstant, "any name");
  remote().setStringConstant(Remote::applicationConstant, std::nullopt);
  int changes = 0;
  SystemNowPlaying::shared()->startObserving([&] { ++changes; });
  machine().notifications().post("any name");
  ASSERT_TRUE(runUntil([&] { return changes == 1; }));
  machine().notifications().post(Remote::infoConstant);
  machine().notifications().post(Remote::applicationConstant);
  remote().setIsPlaying(true);
  ASSERT_TRUE(runUntil([&] { return changes == 2; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(changes, 2);
}

}  // namespace talmo::test
