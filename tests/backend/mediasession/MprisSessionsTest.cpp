#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/mediasession/MprisSessions.h"
#include "tests/backend/mediasession/MediaSessionTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Wake = MprisSessions::Wake;

class MprisSessionsTest : public MediaSessionTest {
 protected:
  /// The owner as a tracker that has been there all along sees it; "" for none.
  std::string owner() { return ownerIn(sessions_); }

  /// The owner as somebody sees it who looks once.
  static std::string ownerAtOnce() {
    MprisSessions fresh;
    return ownerIn(fresh);
  }

  MprisSessions sessions_;

 private:
  static std::string ownerIn(MprisSessions& sessions) {
    const std::optional<MprisSession> session = sessions.current(false);
    return session ? session->bundleIdentifier : "";
  }
};

TEST_F(MprisSessionsTest, NobodyOwnsASilentDesktop) {
  EXPECT_EQ(owner(), "");
  const auto idle = start("idle", "Stopped");
  EXPECT_EQ(owner(), "");
  EXPECT_FALSE(sessions_.send(0));
  EXPECT_THAT(idle->received(), testing::IsEmpty());
}

TEST_F(MprisSessionsTest, ThePlayerThatStartedLastOwnsTheSession) {
  const auto vlc = start("vlc");
  EXPECT_EQ(owner(), "org.videolan.vlc");
  const auto audacious = start("audacious", "Stopped");
  EXPECT_EQ(owner(), "org.videolan.vlc");
  audacious->setPlaybackStatus("Playing");
  EXPECT_EQ(owner(), "org.atheme.audacious");
  audacious->setPlaybackStatus("Paused");
  EXPECT_EQ(owner(), "org.atheme.audacious");
  vlc->setPlaybackStatus("Paused");
  EXPECT_EQ(owner(), "org.atheme.audacious");
  vlc->setPlaybackStatus("Playing");
  EXPECT_EQ(owner(), "org.videolan.vlc");
}

TEST_F(MprisSessionsTest, TheSessionGoesToTheNextWhenTheOwnerQuits) {
  auto vlc = start("vlc");
  EXPECT_EQ(owner(), "org.videolan.vlc");
  auto audacious = start("audacious");
  EXPECT_EQ(owner(), "org.atheme.audacious");
  auto third = start("third");
  EXPECT_EQ(owner(), "third");
  third.reset();
  EXPECT_TRUE(waitUntil([&] { return owner() == "org.atheme.audacious"; }));
  audacious.reset();
  EXPECT_TRUE(waitUntil([&] { return owner() == "org.videolan.vlc"; }));
  vlc.reset();
  EXPECT_TRUE(waitUntil([&] { return owner().empty(); }));
}

TEST_F(MprisSessionsTest, WhoLooksOnceSeesTheSameOwnerAsWhoWatches) {
  const auto a = start("a", "Paused");
  const auto b = start("b");
  EXPECT_EQ(owner(), "b");
  EXPECT_EQ(ownerAtOnce(), "b");
  a->setPlaybackStatus("Playing");
  EXPECT_EQ(owner(), "a");
  EXPECT_EQ(ownerAtOnce(), "a");
  b->setPlaybackStatus("Paused");
  EXPECT_EQ(ownerAtOnce(), "a");
  // And who watches learns from who looked once.
  b->setPlaybackStatus("Playing");
  EXPECT_EQ(ownerAtOnce(), "b");
  a->setPlaybackStatus("Paused");
  b->setPlaybackStatus("Paused");
  EXPECT_EQ(owner(), "b");
}

TEST_F(MprisSessionsTest, ARecordOfAnotherBusIsOfNoUse) {
  auto a = start("a");
  EXPECT_EQ(owner(), "a");
  auto b = start("b");
  EXPECT_EQ(owner(), "b");
  EXPECT_EQ(ownerAtOnce(), "b");
  a.reset();
  b.reset();
  startBus();
  // The same unique names as before, as a bus counts from the start.
  a = start("a");
  b = start("b");
  EXPECT_EQ(ownerAtOnce(), "a");
}

TEST_F(MprisSessionsTest, WithoutARuntimeFolderWhoWatchesKnowsTheOrder) {
  ::unsetenv("XDG_RUNTIME_DIR");
  MprisSessions sessions;
  const auto a = start("a", "Paused");
  const auto b = start("b");
  ASSERT_TRUE(sessions.current(false));
  a->setPlaybackStatus("Playing");
  b->setPlaybackStatus("Paused");
  ASSERT_TRUE(sessions.current(false));
  a->setPlaybackStatus("Paused");
  EXPECT_EQ(sessions.current(false)->bundleIdentifier, "a");
  b->setPlaybackStatus("Playing");
  EXPECT_EQ(sessions.current(false)->bundleIdentifier, "b");
}

TEST_F(MprisSessionsTest, ARecordThatCannotBeWrittenMisleadsNobody) {
  const auto a = start("a", "Paused");
  const auto b = start("b", "Paused");
  EXPECT_EQ(owner(), "a");
  const auto folder = runtimeFolder().path() / "talmo";
  // From now on a folder is in the way of what is to be written.
  std::filesystem::remove_all(folder / "media-session");
  std::filesystem::create_directories(folder / "media-session" / "in the way");
  b->setPlaybackStatus("Playing");
  EXPECT_EQ(owner(), "b");
  a->setPlaybackStatus("Playing");
  EXPECT_EQ(owner(), "a");
  EXPECT_EQ(owner(), "a");
  a->setPlaybackStatus("Paused");
  EXPECT_EQ(owner(), "a");
}

TEST_F(MprisSessionsTest, MirrorsOwnNothing) {
  const auto vlc = start("vlc");
  EXPECT_EQ(owner(), "org.videolan.vlc");
  const auto mirror = start("playerctld");
  const auto phone = start("kdeconnect.mpris_000001");
  EXPECT_EQ(owner(), "org.videolan.vlc");
}

TEST_F(MprisSessionsTest, TellsAllThatThePlayerTells) {
  const auto player = start("vlc", "Paused");
  std::ofstream(runtimeFolder().path() / "a cover") << "picture";
  player->setTrack({.title = "Morning",
                    .artists = {"One", "", "Another"},
                    .album = "Day",
                    .url = "file:///tunes/01.ogg",
                    .artUrl = "file://" + runtimeFolder().path().string() + "/a%20cover",
                    .trackid = "/track/7",
                    .length = 90'500'000});
  player->seek(1'250'000);
  const std::optional<MprisSession> session = sessions_.current(true);
  ASSERT_TRUE(session);
  EXPECT_EQ(session->bundleIdentifier, "org.videolan.vlc");
  EXPECT_EQ(session->process, ::getpid());
  EXPECT_EQ(session->title, "Morning");
  EXPECT_EQ(session->artist, "One, Another");
  EXPECT_EQ(session->album, "Day");
  EXPECT_EQ(session->trackIdentifier, "/track/7");
  EXPECT_EQ(session->duration, 90.5);
  EXPECT_EQ(session->elapsedTime, 1.25);
  EXPECT_EQ(session->rate, 1);
  EXPECT_FALSE(session->isPlaying);
  ASSERT_NE(session->artwork, nullptr);
  EXPECT_EQ(*session->artwork, "picture");
  EXPECT_EQ(sessions_.current(true)->artwork, session->artwork);
  EXPECT_EQ(sessions_.current(false)->artwork, nullptr);
  player->setPlaybackStatus("Playing");
  EXPECT_TRUE(sessions_.current(true)->isPlaying);
}

TEST_F(MprisSessionsTest, WhatIsNotToldIsAbsent) {
  const auto player = start("vlc");
  player->setTrack({});
  player->seek(-1);
  const std::optional<MprisSession> session = sessions_.current(true);
  ASSERT_TRUE(session);
  EXPECT_EQ(session->title, "");
  EXPECT_EQ(session->artist, std::nullopt);
  EXPECT_EQ(session->album, std::nullopt);
  EXPECT_EQ(session->trackIdentifier, "");
  EXPECT_EQ(session->duration, std::nullopt);
  EXPECT_EQ(session->elapsedTime, std::nullopt);
  EXPECT_EQ(session->artwork, nullptr);
  EXPECT_TRUE(session->isPlaying);
}

TEST_F(MprisSessionsTest, ATrackWithoutATitleIsCalledAfterItsFile) {
  const auto player = start("vlc");
  player->setTrack({.url = "file:///tunes/First%20Light.ogg"});
  EXPECT_EQ(sessions_.current(false)->title, "First Light");
}

TEST_F(MprisSessionsTest, ThePlayersDesktopEntryNamesAPlayerOutsideTheTable) {
  const FakePlayer player(
      {.name = "Tuner.instance5", .desktopEntry = "org.example.Tuner", .onCommand = {}});
  EXPECT_EQ(owner(), "org.example.Tuner");
}

TEST_F(MprisSessionsTest, TheOwnerCarriesOutCommands) {
  const auto paused = start("a", "Paused");
  const auto player = start("b");
  for (int command = 0; command <= 5; ++command) {
    // From outside, so that it owns the session whatever the last command was.
    if (command == 4) player->setPlaybackStatus("Playing");
    EXPECT_TRUE(sessions_.send(command)) << command;
  }
  EXPECT_THAT(player->received(),
              ElementsAre("Play", "Pause", "PlayPause", "Stop", "Next", "Previous"));
  EXPECT_FALSE(sessions_.send(6));
  EXPECT_FALSE(sessions_.send(-1));
  EXPECT_EQ(player->received().size(), 6U);
  EXPECT_THAT(paused->received(), testing::IsEmpty());
}

TEST_F(MprisSessionsTest, ACommandThatTheOwnerRefusesIsNotDelivered) {
  const auto player = start("b");
  player->setBehaviour(FakePlayer::Behaviour::fails);
  EXPECT_FALSE(sessions_.send(2));
  EXPECT_THAT(player->received(), ElementsAre("PlayPause"));
}

TEST_F(MprisSessionsTest, EveryKindOfChangeEndsTheWait) {
  EXPECT_EQ(sessions_.waitForChange(), Wake::change) << "the first wait";
  // Some change, at the latest when the time is up; a missing one fails the deadline.
  const auto changes = [&] {
    return sessions_.waitForChange({}, std::chrono::steady_clock::now() + 10s) == Wake::change;
  };
  auto player = start("vlc", "Paused");
  EXPECT_TRUE(changes()) << "a player that came";
  player->setPlaybackStatus("Playing");
  EXPECT_TRUE(changes()) << "another status";
  player->setTrack({.title = "Morning"});
  EXPECT_TRUE(changes()) << "another track";
  player->seek(1'000'000);
  EXPECT_TRUE(changes()) << "a place in the track";
  player.reset();
  EXPECT_TRUE(changes()) << "a player that went";
}

TEST_F(MprisSessionsTest, ABurstOfChangesIsOne) {
  const auto player = start("vlc");
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  for (int count = 0; count < 20; ++count) player->seek(count);
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  // Nothing is left of it.
  EXPECT_EQ(sessions_.waitForChange({}, std::chrono::steady_clock::now() + 200ms), Wake::deadline);
}

TEST_F(MprisSessionsTest, TheWaitEndsWithADescriptor) {
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  int ends[2]{};
  ASSERT_EQ(::pipe(ends), 0);
  std::vector<pollfd> descriptors{{.fd = ends[0], .events = POLLIN, .revents = 0},
                                  {.fd = ends[1], .events = 0, .revents = 0}};
  EXPECT_EQ(sessions_.waitForChange(descriptors, std::chrono::steady_clock::now() + 10ms),
            Wake::deadline);
  EXPECT_EQ(::write(ends[1], "x", 1), 1);
  EXPECT_EQ(sessions_.waitForChange(descriptors), Wake::descriptor);
  EXPECT_EQ(descriptors[0].revents, POLLIN);
  EXPECT_EQ(descriptors[1].revents, 0);
  // The write end of a pipe that nobody reads any more.
  ::close(ends[0]);
  EXPECT_EQ(sessions_.waitForChange({&descriptors[1], 1}), Wake::descriptor);
  EXPECT_TRUE((descriptors[1].revents & POLLERR) != 0);
  ::close(ends[1]);
}

TEST_F(MprisSessionsTest, AChangeIsNotForgottenWhenADescriptorComesFirst) {
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  const auto player = start("vlc");
  int ends[2]{};
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], "x", 1), 1);
  pollfd descriptor{.fd = ends[0], .events = POLLIN, .revents = 0};
  EXPECT_EQ(sessions_.waitForChange({&descriptor, 1}), Wake::descriptor);
  EXPECT_EQ(sessions_.waitForChange({}, std::chrono::steady_clock::now() + 10s), Wake::change);
  ::close(ends[0]);
  ::close(ends[1]);
}

}  // namespace
}  // namespace talmo::test
