#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/mediasession/LinuxMediaRemote.h"
#include "platform/linux/mediasession/MprisSessions.h"
#include "support/MainQueueNotifications.h"
#include "tests/backend/mediasession/MediaSessionTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* getInfo = "MRMediaRemoteGetNowPlayingInfo";
const std::string prefix = "kMRMediaRemoteNowPlayingInfo";

class LinuxMediaRemoteTest : public MediaSessionTest {
 protected:
  ~LinuxMediaRemoteTest() override { dispatch_.shutdown(); }

  bool runUntil(const std::function<bool()>& condition) {
    return dispatch_.serveMainQueueUntil(condition, dispatch_.uptime() + 10s);
  }

  std::optional<MediaRemoteInfo> info() {
    std::optional<MediaRemoteInfo> received;
    std::atomic<bool> hasCome = false;
    mediaRemote_->getNowPlayingInfo(queue_, [&](std::optional<MediaRemoteInfo> info) {
      received = std::move(info);
      hasCome = true;
    });
    EXPECT_TRUE(runUntil([&] { return hasCome.load(); }));
    return received;
  }

  static std::string ownerAtOnce() {
    MprisSessions sessions;
    const std::optional<MprisSession> session = sessions.current(false);
    return session ? session->bundleIdentifier : "";
  }

  LinuxDispatch dispatch_;
  MainQueueNotifications notifications_{dispatch_};
  std::shared_ptr<Queue> queue_ =
      dispatch_.makeSerialQueue("nl.brelm.test.media", QualityOfService::utility);
  std::unique_ptr<LinuxMediaRemote> mediaRemote_ =
      std::make_unique<LinuxMediaRemote>(notifications_);
};

TEST_F(LinuxMediaRemoteTest, TheConstantsHoldTheirNames) {
  EXPECT_EQ(mediaRemote_->stringConstant("kMRMediaRemoteNowPlayingInfoDidChangeNotification"),
            "MRMediaRemoteNowPlayingInfoDidChangeNotification");
}

TEST_F(LinuxMediaRemoteTest, TellsAllOfTheTrack) {
  const auto player = start("vlc");
  player->setTrack({.title = "Morning", .artists = {"One"}, .album = "Day", .length = 90'500'000});
  player->seek(1'250'000);
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  const MediaRemoteInfo expected{
      {prefix + "Title", "Morning"},  {prefix + "Artist", "One"},  {prefix + "Album", "Day"},
      {prefix + "PlaybackRate", 1.0}, {prefix + "Duration", 90.5}, {prefix + "ElapsedTime", 1.25},
  };
  EXPECT_EQ(info(), expected);
}

TEST_F(LinuxMediaRemoteTest, WhatIsNotToldIsNotThere) {
  const auto player = start("vlc", "Paused");
  player->setTrack({});
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  const MediaRemoteInfo expected{{prefix + "PlaybackRate", 0.0}, {prefix + "ElapsedTime", 0.0}};
  EXPECT_EQ(info(), expected);
}

TEST_F(LinuxMediaRemoteTest, TheOrderIsRightForThoseWhoComeLater) {
  // Nobody asks for anything but the function: watching is enough.
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  const auto a = start("a", "Paused");
  const auto b = start("b", "Paused");
  b->setPlaybackStatus("Playing");
  const auto record = runtimeFolder().path() / "talmo" / "media-session";
  const auto noted = [&](std::size_t lines) {
    return waitUntil([&] {
      std::ifstream file(record);
      std::string line;
      std::size_t count = 0;
      while (std::getline(file, line)) {
        if (line.starts_with("playing ")) ++count;
      }
      return count == lines;
    });
  };
  ASSERT_TRUE(noted(1));
  a->setPlaybackStatus("Playing");
  ASSERT_TRUE(noted(2));
  b->setPlaybackStatus("Paused");
  ASSERT_TRUE(noted(1));
  a->setPlaybackStatus("Paused");
  ASSERT_TRUE(noted(0));
  EXPECT_EQ(ownerAtOnce(), "a");
}

TEST_F(LinuxMediaRemoteTest, APlayerThatPlaysOnIsNoNews) {
  const auto player = start("a");
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  ASSERT_TRUE(info());
  int news = 0;
  std::atomic<int> isPlayingNews = 0;
  notifications_.addObserver("MRMediaRemoteNowPlayingInfoDidChangeNotification", [&] { ++news; });
  notifications_.addObserver("MRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification",
                             [&] { ++isPlayingNews; });
  mediaRemote_->registerForNowPlayingNotifications(queue_);
  player->seek(5'000'000);
  ASSERT_TRUE(
      waitUntil([&] { return info()->at(prefix + "ElapsedTime") == MediaRemoteValue(5.0); }));
  EXPECT_EQ(news, 0);
  player->setPlaybackStatus("Paused");
  EXPECT_TRUE(runUntil([&] { return isPlayingNews == 1; }));
  EXPECT_EQ(news, 1);
}

TEST_F(LinuxMediaRemoteTest, AnotherOwnerIsAnotherApplication) {
  const auto a = start("a");
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  ASSERT_TRUE(info());
  std::atomic<int> news = 0;
  notifications_.addObserver("MRMediaRemoteNowPlayingApplicationDidChangeNotification",
                             [&] { ++news; });
  mediaRemote_->registerForNowPlayingNotifications(queue_);
  const auto b = start("b");
  EXPECT_TRUE(runUntil([&] { return news == 1; }));
}

TEST_F(LinuxMediaRemoteTest, AskingNeverWaitsForAPlayer) {
  const auto player = start("a");
  player->setBehaviour(FakePlayer::Behaviour::hangs);
  ASSERT_TRUE(mediaRemote_->hasFunction(getInfo));
  std::atomic<int> answers = 0;
  for (int count = 0; count < 1000; ++count) {
    mediaRemote_->getNowPlayingApplicationIsPlaying(queue_, [&](bool) { ++answers; });
  }
  // Each one would have taken a good while otherwise.
  EXPECT_TRUE(runUntil([&] { return answers == 1000; }));
}

TEST_F(LinuxMediaRemoteTest, EndsWhileItIsAsked) {
  const auto player = start("a");
  const auto held = std::make_shared<int>(0);
  for (int round = 0; round < 20; ++round) {
    mediaRemote_ = std::make_unique<LinuxMediaRemote>(notifications_);
    mediaRemote_->hasFunction(getInfo);
    for (int count = 0; count < 10; ++count) {
      mediaRemote_->getNowPlayingApplicationIsPlaying(queue_, [held](bool) {});
    }
  }
  mediaRemote_.reset();
  EXPECT_TRUE(waitUntil([&] { return held.use_count() == 1; }));
}

TEST_F(LinuxMediaRemoteTest, NobodyWhoDoesNotAskStartsAnything) {
  const auto player = start("a");
  mediaRemote_.reset();
  EXPECT_FALSE(std::filesystem::exists(runtimeFolder().path() / "talmo"));
}

}  // namespace
}  // namespace talmo::test
