#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "platform/linux/mediasession/MprisSessions.h"
#include "tests/backend/mediasession/MediaSessionTest.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Wake = MprisSessions::Wake;

class MprisSessionsRobustTest : public MediaSessionTest {
 protected:
  std::string owner() {
    const std::optional<MprisSession> session = sessions_.current(true);
    return session ? session->bundleIdentifier : "";
  }

  MprisSessions sessions_;
};

TEST_F(MprisSessionsRobustTest, APlayerThatHangsDoesNotHideTheOthers) {
  const auto hanging = start("a");
  hanging->setBehaviour(FakePlayer::Behaviour::hangs);
  const auto player = start("b");
  const auto start = Clock::now();
  EXPECT_EQ(owner(), "b");
  EXPECT_LT(Clock::now() - start, 5s);
}

TEST_F(MprisSessionsRobustTest, APlayerThatHangsIsTakenForWhatItWas) {
  const auto player = start("a");
  player->setTrack({.title = "Morning"});
  EXPECT_EQ(owner(), "a");
  player->setBehaviour(FakePlayer::Behaviour::hangs);
  player->setTrack({.title = "Evening"});
  EXPECT_EQ(sessions_.current(false)->title, "Morning");
  EXPECT_EQ(sessions_.current(false)->title, "Morning");
  EXPECT_FALSE(sessions_.send(2));
  player->setBehaviour(FakePlayer::Behaviour::answers);
  EXPECT_TRUE(waitUntil([&] { return sessions_.current(false)->title == "Evening"; }));
}

TEST_F(MprisSessionsRobustTest, APlayerThatHangsIsAskedAgainLater) {
  const auto player = start("a");
  player->setBehaviour(FakePlayer::Behaviour::hangs);
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  EXPECT_EQ(owner(), "");
  // It says nothing of its recovery.
  player->setBehaviour(FakePlayer::Behaviour::answers);
  EXPECT_EQ(sessions_.waitForChange({}, Clock::now() + 10s), Wake::change);
  EXPECT_EQ(owner(), "a");
}

TEST_F(MprisSessionsRobustTest, APlayerMayQuitWhileItIsAsked) {
  const auto player = start("b", "Paused");
  for (int round = 0; round < 20; ++round) {
    auto leaving = start("a");
    leaving->setBehaviour(FakePlayer::Behaviour::hangs);
    std::atomic<bool> isAsking = false;
    std::thread asking([&] {
      MprisSessions sessions;
      isAsking = true;
      const std::optional<MprisSession> session = sessions.current(true);
      EXPECT_TRUE(session && session->bundleIdentifier == "b");
    });
    EXPECT_TRUE(waitUntil([&] { return isAsking.load(); }));
    leaving.reset();
    asking.join();
  }
}

TEST_F(MprisSessionsRobustTest, PropertiesOfWrongTypesAreAbsent) {
  const FakePlayer wrong(
      {.name = "a", .behaviour = FakePlayer::Behaviour::answersWithWrongTypes, .onCommand = {}});
  EXPECT_EQ(owner(), "");
  const auto player = start("b");
  player->setTrack({.hasWrongTypes = true});
  player->seek(2'000'000);
  const std::optional<MprisSession> session = sessions_.current(true);
  ASSERT_TRUE(session);
  EXPECT_EQ(session->bundleIdentifier, "b");
  EXPECT_TRUE(session->isPlaying);
  EXPECT_EQ(session->title, "");
  EXPECT_EQ(session->artist, std::nullopt);
  EXPECT_EQ(session->album, std::nullopt);
  EXPECT_EQ(session->trackIdentifier, "");
  EXPECT_EQ(session->duration, std::nullopt);
  EXPECT_EQ(session->artwork, nullptr);
  EXPECT_EQ(session->elapsedTime, 2);
}

TEST_F(MprisSessionsRobustTest, TextsOfMegabytesAreCut) {
  const auto player = start("a");
  const std::string huge(1'000'000, 'x');
  player->setTrack({.title = huge, .artists = {huge}, .album = huge});
  std::optional<MprisSession> session;
  // On a busy machine so much may take longer than a player is waited for.
  ASSERT_TRUE(waitUntil([&] { return (session = sessions_.current(true)).has_value(); }, 30s));
  const std::string beginning = huge.substr(0, 1000);
  EXPECT_TRUE(session->title.starts_with(beginning));
  EXPECT_TRUE(session->artist.value_or("").starts_with(beginning));
  EXPECT_TRUE(session->album.value_or("").starts_with(beginning));
  EXPECT_LT(session->title.size() + session->artist->size() + session->album->size(), 100'000U);
}

TEST_F(MprisSessionsRobustTest, AFloodOfSignalsIsAFewChanges) {
  const auto flooding = start("a");
  const auto player = start("b", "Paused");
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  EXPECT_EQ(owner(), "a");
  flooding->setFlooding(true);
  const auto start = Clock::now();
  int changes = 0;
  while (Clock::now() - start < 2s) {
    const Wake wake = sessions_.waitForChange({}, start + 2s);
    if (wake == Wake::change) ++changes;
    // However late the flooding player answers, it was playing before.
    EXPECT_NE(owner(), "");
  }
  EXPECT_GE(changes, 1);
  EXPECT_LE(changes, 20);
  player->setPlaybackStatus("Playing");
  EXPECT_TRUE(waitUntil([&] { return owner() == "b"; }));
  flooding->setFlooding(false);
}

TEST_F(MprisSessionsRobustTest, ADescriptorIsSeenInAFlood) {
  const auto flooding = start("a");
  flooding->setFlooding(true);
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  int ends[2]{};
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], "x", 1), 1);
  pollfd descriptor{.fd = ends[0], .events = POLLIN, .revents = 0};
  EXPECT_EQ(sessions_.waitForChange({&descriptor, 1}), Wake::descriptor);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST_F(MprisSessionsRobustTest, WithoutABusThereIsNoSession) {
  endBus();
  EXPECT_EQ(owner(), "");
  EXPECT_FALSE(sessions_.send(0));
  EXPECT_EQ(sessions_.waitForChange({}, Clock::now() + 50ms), Wake::deadline);
}

TEST_F(MprisSessionsRobustTest, ABusThatComesBackIsFound) {
  auto player = start("a");
  EXPECT_EQ(sessions_.waitForChange(), Wake::change);
  EXPECT_EQ(owner(), "a");
  player.reset();
  endBus();
  EXPECT_EQ(sessions_.waitForChange({}, Clock::now() + 10s), Wake::change);
  EXPECT_EQ(owner(), "");
  startBus();
  player = start("b");
  EXPECT_TRUE(waitUntil([&] {
    return sessions_.waitForChange({}, Clock::now() + 5s) == Wake::change && owner() == "b";
  }));
  player->setPlaybackStatus("Paused");
  EXPECT_EQ(sessions_.waitForChange({}, Clock::now() + 10s), Wake::change);
}

TEST_F(MprisSessionsRobustTest, ABusThatHangsKeepsWhatWasKnown) {
  const auto player = start("a");
  EXPECT_EQ(owner(), "a");
  ASSERT_EQ(::kill(bus().daemon().pid(), SIGSTOP), 0);
  EXPECT_EQ(owner(), "a");
  ASSERT_EQ(::kill(bus().daemon().pid(), SIGCONT), 0);
  player->setPlaybackStatus("Stopped");
  EXPECT_TRUE(waitUntil([&] { return owner().empty(); }));
}

}  // namespace
}  // namespace talmo::test
