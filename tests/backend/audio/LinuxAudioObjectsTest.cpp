#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <stdlib.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/audio/LinuxAudioObjects.h"
#include "tests/backend/audio/SoundDesk.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Audio = AudioObjects;

class LinuxAudioObjectsTest : public testing::Test {
 protected:
  AudioResult<std::uint32_t> poll() {
    return audio.dataSize(Audio::systemObject, Audio::processObjectList);
  }

  /// How many streams play.
  int playing() {
    const AudioResult<std::uint32_t> size = poll();
    int count = 0;
    for (const Audio::Object object :
         audio.objects(Audio::systemObject, Audio::processObjectList, size.value).value) {
      if (audio.number(object, Audio::processIsRunningOutput).value != 0) ++count;
    }
    return count;
  }

  SoundDesk desk;
  LinuxAudioObjects audio;
};

std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

std::ptrdiff_t threads() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

TEST_F(LinuxAudioObjectsTest, AMutedStreamPlays) {
  const auto player = desk.start("vlc");
  SoundDesk::command(player, SIGHUP, "muted");
  EXPECT_EQ(playing(), 1);
}

TEST_F(LinuxAudioObjectsTest, ListsManyStreams) {
  const auto many = desk.start("vlc", 40);
  const auto other = desk.start("chromium", 3);
  EXPECT_EQ(poll().value, 43U * 4);
  EXPECT_EQ(playing(), 43);
  SoundDesk::command(many, SIGUSR1, "corked");
  EXPECT_EQ(playing(), 3);
}

TEST_F(LinuxAudioObjectsTest, AProgramThatIsNoApplicationHasAProcessAndNoBundle) {
  const auto player = desk.start("talmo-nobody");
  ASSERT_EQ(playing(), 1);
  const Audio::Object object =
      audio.objects(Audio::systemObject, Audio::processObjectList, 4).value.at(0);
  EXPECT_EQ(audio.number(object, Audio::processPID).value,
            static_cast<std::uint32_t>(player.playing));
  EXPECT_FALSE(audio.hasProperty(object, Audio::processBundleID));
  EXPECT_EQ(audio.responsibleProcess(player.playing), player.playing);
}

TEST_F(LinuxAudioObjectsTest, AnApplicationIsNotItsStartersAffair) {
  // A browser that opens a player does not sound when the player does.
  const auto player = desk.startHelper("chromium", "vlc");
  EXPECT_EQ(audio.responsibleProcess(player.playing), player.playing);
}

TEST_F(LinuxAudioObjectsTest, TheFirstProcessOfAnApplicationIsResponsible) {
  const auto player = desk.startHelper("chromium", "chromium");
  ASSERT_NE(player.playing, player.process->pid());
  EXPECT_EQ(audio.responsibleProcess(player.playing), player.process->pid());
}

TEST_F(LinuxAudioObjectsTest, AProcessThatIsGoneIsResponsibleForItself) {
  const auto pid = static_cast<ProcessIdentifier>(desk.start("vlc").playing);
  EXPECT_EQ(audio.responsibleProcess(pid), pid);
  EXPECT_EQ(audio.responsibleProcess(0), 0);
  EXPECT_EQ(audio.responsibleProcess(-1), -1);
}

TEST_F(LinuxAudioObjectsTest, AServerThatWasKilledIsAStatusAndItsSuccessorIsFound) {
  const auto first = desk.start("vlc");
  ASSERT_EQ(playing(), 1);
  desk.killServer();
  EXPECT_NE(poll().status, 0);
  EXPECT_EQ(poll().value, 0U);
  EXPECT_NE(poll().status, 0) << "and stays one";

  desk.startServer();
  EXPECT_EQ(poll().status, 0);
  const auto second = desk.start("vlc");
  EXPECT_EQ(playing(), 1);
}

TEST_F(LinuxAudioObjectsTest, AServerThatRestartedBetweenTwoCallsIsFoundBySecondAtTheLatest) {
  ASSERT_EQ(poll().status, 0);
  desk.killServer();
  desk.startServer();
  poll();
  EXPECT_EQ(poll().status, 0);
}

TEST_F(LinuxAudioObjectsTest, AServerThatHangsHoldsACallUpForABoundedTime) {
  const auto player = desk.start("vlc");
  ASSERT_EQ(playing(), 1);
  desk.server().process().signal(SIGSTOP);
  // With a connection, and then without one; more often than a socket's queue is long.
  for (int i = 0; i < 9; ++i) {
    const auto before = std::chrono::steady_clock::now();
    EXPECT_NE(poll().status, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - before, 5s);
  }
  desk.server().process().signal(SIGCONT);
  EXPECT_TRUE(waitUntil([&] { return poll().status == 0; }));
  EXPECT_EQ(playing(), 1);
}

TEST_F(LinuxAudioObjectsTest, WithoutAServerThereIsAStatus) {
  ::setenv("PULSE_SERVER", "unix:/nonexistent/socket", 1);
  EXPECT_NE(poll().status, 0);
  EXPECT_TRUE(audio.objects(Audio::systemObject, Audio::processObjectList, 400).value.empty());
  ::setenv("PULSE_SERVER", desk.server().address().c_str(), 1);
  EXPECT_EQ(poll().status, 0);
}

TEST_F(LinuxAudioObjectsTest, KeepsOneConnectionAndStartsNoThread) {
  const std::ptrdiff_t threadsBefore = threads();
  ASSERT_EQ(poll().status, 0);
  const std::ptrdiff_t before = openDescriptors();
  for (int i = 0; i < 50; ++i) ASSERT_EQ(poll().status, 0);
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_EQ(threads(), threadsBefore);

  // Nor do failures leave anything behind.
  desk.killServer();
  for (int i = 0; i < 20; ++i) EXPECT_NE(poll().status, 0);
  EXPECT_LE(openDescriptors(), before);
}

TEST_F(LinuxAudioObjectsTest, SaysNothingOnStandardError) {
  testing::internal::CaptureStderr();
  poll();
  desk.killServer();
  poll();
  poll();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace talmo::test
