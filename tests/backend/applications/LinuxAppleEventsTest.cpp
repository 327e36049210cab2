#include <chrono>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <future>
#include <sys/wait.h>
#include <thread>

#include <gtest/gtest.h>

#include "platform/linux/applications/LinuxAppleEvents.h"
#include "platform/linux/applications/SessionBus.h"
#include "tests/backend/applications/BusNames.h"
#include "tests/backend/applications/PlayersTest.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Commands = std::vector<std::string>;

constexpr const char* rhythmbox = "org.gnome.Rhythmbox3";
constexpr const char* mpv = "io.mpv.Mpv";
constexpr std::int32_t notRunning = -600;
constexpr long twoSeconds = 120;

/// Whether the bus is there for a thread that has no connection yet.
bool isBusThere() {
  return std::async(std::launch::async, ownerOf, "org.freedesktop.DBus").get() != 0;
}

/// Stops a process of ours and waits until all of it stands still.
void stop(const TestProcess& process) {
  process.signal(SIGSTOP);
  siginfo_t ignored{};
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(process.pid()), &ignored, WSTOPPED | WNOWAIT), 0);
}

class LinuxAppleEventsTest : public PlayersTest {
 protected:
  /// Sends one command with a time-out of two seconds; what went wrong, or nothing.
  std::optional<std::string> send(const std::string& bundleID,
                                  const std::string& selector = "playpause") {
    const std::unique_ptr<ScriptingObject> player = appleEvents_.application(bundleID);
    player->setTimeout(twoSeconds);
    player->send(selector);
    return player->lastError();
  }

  std::optional<std::int32_t> consent(const std::string& bundleID) {
    return appleEvents_.determinePermission(bundleID, true);
  }

 private:
  LinuxAppleEvents appleEvents_;
};

TEST_F(LinuxAppleEventsTest, APlayerInAProcessOfItsOwnTakesTheCommands) {
  const FakePlayerProcess player("rhythmbox");
  EXPECT_EQ(send(rhythmbox, "playpause"), std::nullopt);
  EXPECT_EQ(send(rhythmbox, "nextTrack"), std::nullopt);
  EXPECT_EQ(send(rhythmbox, "previousTrack"), std::nullopt);
  EXPECT_EQ(player.received(), (Commands{"PlayPause", "Next", "Previous"}));
}

TEST_F(LinuxAppleEventsTest, AHungPlayerCostsItsCallerTwoSecondsAndNobodyElseAnything) {
  const FakePlayerProcess hung("rhythmbox", {"--hang"});
  const FakePlayerProcess good("mpv");
  std::optional<std::string> hungError;
  Clock::duration hungTime{};
  std::thread caller([&] {
    const Clock::time_point start = Clock::now();
    hungError = send(rhythmbox);
    hungTime = Clock::now() - start;
  });
  // As many as fit: while the other thread waits, each of them gets through at once.
  const Clock::time_point start = Clock::now();
  std::size_t sent = 0;
  Clock::duration longest{};
  while (Clock::now() - start < 1s) {
    const Clock::time_point before = Clock::now();
    ASSERT_EQ(send(mpv), std::nullopt);
    longest = std::max(longest, Clock::now() - before);
    ++sent;
  }
  caller.join();
  EXPECT_EQ(hungError, "no answer within 2000 ms");
  EXPECT_GE(hungTime, 2s);
  EXPECT_LT(hungTime, 3500ms);
  EXPECT_LT(longest, 500ms);
  EXPECT_EQ(good.received().size(), sent);
}

TEST_F(LinuxAppleEventsTest, APlayerThatIsStoppedTakesNoLongerThanTheTimeout) {
  FakePlayerProcess player("rhythmbox");
  ASSERT_EQ(send(rhythmbox), std::nullopt);
  stop(player.process());
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(send(rhythmbox), "no answer within 2000 ms");
  EXPECT_LT(Clock::now() - start, 3500ms);
  player.process().signal(SIGCONT);
  // Its late answers are nobody's: the next command has its own.
  EXPECT_EQ(send(rhythmbox, "nextTrack"), std::nullopt);
  EXPECT_EQ(player.received(), (Commands{"PlayPause", "PlayPause", "Next"}));
}

TEST_F(LinuxAppleEventsTest, TheErrorOfAPlayerIsGivenInItsWords) {
  const FakePlayerProcess player("rhythmbox", {"--error"});
  EXPECT_EQ(send(rhythmbox),
            std::string(FakePlayer::refusalName) + ": " + FakePlayer::refusalMessage);
}

TEST_F(LinuxAppleEventsTest, APlayerThatWasKilledGivesAnErrorAndItsSuccessorTakesTheNextCommand) {
  {
    FakePlayerProcess player("rhythmbox");
    ASSERT_EQ(send(rhythmbox), std::nullopt);
    player.process().signal(SIGKILL);
    ASSERT_TRUE(player.process().waitForExit(10s));
    waitUntilGone("rhythmbox");
  }
  EXPECT_EQ(consent(rhythmbox), notRunning);
  EXPECT_NE(send(rhythmbox), std::nullopt);
  const FakePlayerProcess successor("rhythmbox");
  EXPECT_EQ(send(rhythmbox), std::nullopt);
  EXPECT_EQ(successor.received(), Commands{"PlayPause"});
}

TEST_F(LinuxAppleEventsTest, APlayerThatDiesWithTheCommandInItsHandsGivesAnErrorAtOnce) {
  FakePlayerProcess player("rhythmbox", {"--hang"});
  std::optional<std::string> error;
  Clock::duration taken{};
  std::thread caller([&] {
    const Clock::time_point start = Clock::now();
    error = send(rhythmbox);
    taken = Clock::now() - start;
  });
  // The bus takes the death for the answer whether the command is there already or comes after it.
  player.process().signal(SIGKILL);
  caller.join();
  EXPECT_NE(error, std::nullopt);
  EXPECT_LT(taken, 1500ms);
}

TEST_F(LinuxAppleEventsTest, PropertiesOfTheWrongTypeAreSurvived) {
  const FakePlayerProcess strange("mpv", {"--wrong-types"});
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(strange.received(), Commands{"PlayPause"});
  // With a second instance the first one's state is asked for.
  const FakePlayerProcess paused("mpv.instance1", {"--status", "Paused"});
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(strange.received(), Commands{"PlayPause"});
  EXPECT_EQ(paused.received(), Commands{"PlayPause"});
}

TEST_F(LinuxAppleEventsTest, OfSeveralInstancesTheOneThatPlaysIsMeant) {
  const FakePlayerProcess paused("mpv", {"--status", "Paused"});
  const FakePlayerProcess stopped("mpv.instance10", {"--status", "Stopped"});
  const FakePlayerProcess playing("mpv.instance_2_20", {"--status", "Playing"});
  EXPECT_EQ(send(mpv, "nextTrack"), std::nullopt);
  EXPECT_EQ(playing.received(), Commands{"Next"});
  EXPECT_EQ(paused.received(), Commands{});
  EXPECT_EQ(stopped.received(), Commands{});
}

TEST_F(LinuxAppleEventsTest, WithoutOneThatPlaysTheOneThatIsPausedIsMeant) {
  const FakePlayerProcess stopped("mpv", {"--status", "Stopped"});
  const FakePlayerProcess paused("mpv.instance10", {"--status", "Paused"});
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(paused.received(), Commands{"PlayPause"});
  EXPECT_EQ(stopped.received(), Commands{});
}

TEST_F(LinuxAppleEventsTest, WhatWasPausedIsWhatResumes) {
  const FakePlayerProcess first("mpv", {"--status", "Paused"});
  const FakePlayerProcess second("mpv.instance10", {"--status", "Playing"});
  EXPECT_EQ(send(mpv), std::nullopt);
  // Both are paused now.
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(second.received(), (Commands{"PlayPause", "PlayPause"}));
  EXPECT_EQ(first.received(), Commands{});
}

TEST_F(LinuxAppleEventsTest, AmongEqualInstancesTheFirstIsMeant) {
  const FakePlayerProcess later("mpv.instance10", {"--status", "Stopped"});
  const FakePlayerProcess first("mpv", {"--status", "Stopped"});
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(first.received(), Commands{"PlayPause"});
  EXPECT_EQ(later.received(), Commands{});
}

TEST_F(LinuxAppleEventsTest, AHungInstanceLeavesTimeForOneThatAnswers) {
  const FakePlayerProcess hung("mpv", {"--hang"});
  const FakePlayerProcess paused("mpv.instance10", {"--status", "Paused"});
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_LT(Clock::now() - start, 2s);
  EXPECT_EQ(paused.received(), Commands{"PlayPause"});
}

TEST_F(LinuxAppleEventsTest, HungInstancesTogetherCostOneTimeout) {
  const FakePlayerProcess first("mpv", {"--hang"});
  const FakePlayerProcess second("mpv.instance10", {"--hang"});
  const FakePlayerProcess third("mpv.instance11", {"--hang"});
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(send(mpv), "no answer within 2000 ms");
  const Clock::duration taken = Clock::now() - start;
  EXPECT_GE(taken, 2s);
  EXPECT_LT(taken, 3500ms);
}

TEST_F(LinuxAppleEventsTest, ANameThatOnlyBeginsAlikeIsSomebodyElses) {
  const FakePlayerProcess other("mpvpaper");
  const FakePlayerProcess part("mpv.something");
  EXPECT_EQ(consent(mpv), notRunning);
  EXPECT_NE(send(mpv), std::nullopt);
  EXPECT_EQ(other.received(), Commands{});
  EXPECT_EQ(part.received(), Commands{});
}

TEST_F(LinuxAppleEventsTest, AnInstanceAloneIsThePlayer) {
  const FakePlayerProcess player("mpv.instance123");
  EXPECT_EQ(consent(mpv), 0);
  EXPECT_EQ(send(mpv), std::nullopt);
  EXPECT_EQ(player.received(), Commands{"PlayPause"});
}

TEST_F(LinuxAppleEventsTest, ABrowserIsNoScriptablePlayer) {
  LinuxAppleEvents appleEvents;
  EXPECT_EQ(appleEvents.application("com.google.Chrome"), nullptr);
  EXPECT_EQ(consent("com.google.Chrome"), notRunning);
}

TEST_F(LinuxAppleEventsTest, ABusThatComesBackServesTheNextCommand) {
  {
    const FakePlayerProcess player("rhythmbox");
    ASSERT_EQ(send(rhythmbox), std::nullopt);
  }
  bus().daemon().end();
  EXPECT_EQ(consent(rhythmbox), notRunning);
  EXPECT_NE(send(rhythmbox), std::nullopt);
  // At the same address, as after a crash of the daemon.
  const TestProcess successor({.arguments = {"dbus-daemon", "--session", "--nofork", "--nopidfile",
                                             "--address=" + bus().address()}});
  ASSERT_TRUE(waitUntil(isBusThere));
  const FakePlayerProcess player("rhythmbox");
  EXPECT_EQ(consent(rhythmbox), 0);
  EXPECT_EQ(send(rhythmbox), std::nullopt);
  EXPECT_EQ(player.received(), Commands{"PlayPause"});
}

TEST_F(LinuxAppleEventsTest, ABusThatChangedUnseenBetweenTwoCommandsLosesNeither) {
  const auto before = std::make_unique<FakePlayerProcess>("rhythmbox");
  ASSERT_EQ(send(rhythmbox), std::nullopt);
  startBus();
  const FakePlayerProcess after("rhythmbox");
  EXPECT_EQ(send(rhythmbox, "nextTrack"), std::nullopt);
  EXPECT_EQ(after.received(), Commands{"Next"});
}

TEST_F(LinuxAppleEventsTest, ABusThatHangsCostsNoMoreThanTheTimeout) {
  const FakePlayerProcess player("rhythmbox");
  ASSERT_EQ(send(rhythmbox), std::nullopt);
  stop(bus().daemon());
  Clock::time_point start = Clock::now();
  EXPECT_EQ(consent(rhythmbox), notRunning);
  EXPECT_LT(Clock::now() - start, 2s);
  start = Clock::now();
  EXPECT_NE(send(rhythmbox), std::nullopt);
  EXPECT_LT(Clock::now() - start, 3500ms);
  // A thread that has no connection cannot make one either.
  std::thread other([&] {
    const Clock::time_point begin = Clock::now();
    EXPECT_EQ(consent(rhythmbox), notRunning);
    EXPECT_LT(Clock::now() - begin, 2s);
  });
  other.join();
  bus().daemon().signal(SIGCONT);
  EXPECT_EQ(consent(rhythmbox), 0);
}

TEST_F(LinuxAppleEventsTest, WithoutABusNobodyWillBeAskedAndACommandFailsWithoutWaiting) {
  bus().daemon().end();
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(consent(rhythmbox), notRunning);
  EXPECT_NE(send(rhythmbox), std::nullopt);
  EXPECT_LT(Clock::now() - start, 1s);
}

TEST_F(LinuxAppleEventsTest, NoPlayerIsStartedThroughTheBus) {
  const std::string busName = "org.mpris.MediaPlayer2.rhythmbox";
  const std::filesystem::path services = PrivateData::dataHome() / "dbus-1" / "services";
  std::filesystem::create_directories(services);
  std::ofstream(services / (busName + ".service"))
      << "[D-BUS Service]\nName=" << busName << "\nExec=" << FakePlayerProcess::program()
      << " rhythmbox\n";
  // A bus that knows the service from its start.
  startBus();
  EXPECT_EQ(consent(rhythmbox), notRunning);
  EXPECT_NE(send(rhythmbox), std::nullopt);
  // A player that quits just before the call.
  const BusReply reply =
      SessionBus::ofThisThread().call({.destination = busName,
                                       .path = "/org/mpris/MediaPlayer2",
                                       .interface = "org.mpris.MediaPlayer2.Player",
                                       .member = "PlayPause"},
                                      Clock::now() + 10s);
  EXPECT_EQ(reply.message, nullptr);
  EXPECT_FALSE(reply.isTimeout);
  EXPECT_EQ(consent(rhythmbox), notRunning);
  // It could have been started: the bus does so when it is told to. 1: it was not there before.
  EXPECT_EQ(startService(busName), 1U);
  EXPECT_EQ(consent(rhythmbox), 0);
  EXPECT_GT(ownerOf(busName), 0);
}

}  // namespace
}  // namespace talmo::test
