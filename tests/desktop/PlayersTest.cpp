#include <chrono>
#include <memory>
#include <signal.h>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/Minimise.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using Clock = std::chrono::steady_clock;

constexpr const char* failure = "Apple Event to Audacious failed";

class Players : public DesktopTest {};

TEST_F(Players, ThatDieBetweenTwoPressesAreLaunchedByPlayPauseOnly) {
  install("audacious", FakePlayerProcess::command("audacious"));
  auto player = std::make_unique<FakePlayerProcess>(desktop_, "audacious");
  startTalmo("audacious");
  keys_.tap("XF86AudioNext");
  ASSERT_TRUE(player->waitForCommands(1)) << talmo_->log();
  ASSERT_TRUE(talmo_->waitForLines("Sent command")) << talmo_->log();

  player->process().signal(SIGKILL);
  ASSERT_TRUE(player->process().waitForExit(10s));
  // The bus needs a moment to take the name back.
  MprisClient mpris(desktop_.busAddress(), "audacious");
  ASSERT_TRUE(waitUntil([&] { return mpris.playbackStatus().empty(); }));

  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("media key: next down", 2)) << talmo_->log();
  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(talmo_->waitForLines("Launching Audacious")) << talmo_->log();
  ASSERT_TRUE(waitUntil([&] { return !mpris.playbackStatus().empty(); })) << talmo_->log();
  // Commands run in order, so the press before the launch has done nothing.
  EXPECT_EQ(desktop_.processes("talmo-fake-player").size(), 1U);
  EXPECT_EQ(talmo_->lines("Launching").size(), 1U) << talmo_->log();
  EXPECT_EQ(talmo_->lines("Sent command").size(), 1U) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(Players, ThatNeverReplyCostTheirTwoSecondsAndNothingElse) {
  const FakePlayerProcess player(desktop_, "audacious", {"--hang"});
  startTalmo("audacious");

  const Clock::time_point pressed = Clock::now();
  keys_.tap("XF86AudioPlay");
  keys_.tap("XF86AudioNext");
  // Both are taken at once, whatever the player does.
  EXPECT_TRUE(talmo_->waitForLines("media key:", 2)) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  EXPECT_TRUE(talmo_->lines(failure).empty()) << talmo_->log();
  EXPECT_LT(Clock::now() - pressed, 1900ms);

  EXPECT_TRUE(talmo_->waitForLines(failure, 1)) << talmo_->log();
  const Clock::duration first = Clock::now() - pressed;
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(talmo_->waitForLines("media key: previous down")) << talmo_->log();
  EXPECT_TRUE(talmo_->waitForLines(failure, 2)) << talmo_->log();
  const Clock::duration second = Clock::now() - pressed;
  EXPECT_TRUE(talmo_->waitForLines(failure, 3)) << talmo_->log();
  const Clock::duration third = Clock::now() - pressed;
  EXPECT_GT(first, 1900ms);
  EXPECT_LT(first, 3500ms);
  EXPECT_GT(second, 3900ms);
  EXPECT_LT(second, 6s);
  EXPECT_GT(third, 5900ms);
  EXPECT_LT(third, 9s);
}

TEST_F(Players, ThatFallSilentGetTheNextKeyWhenTheyAreBack) {
  FakePlayerProcess player(desktop_, "audacious");
  startTalmo("audacious");
  player.process().signal(SIGSTOP);
  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(talmo_->waitForLines(failure)) << talmo_->log();
  player.process().signal(SIGCONT);
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("Sent command to Audacious")) << talmo_->log();
  // What waited for the player it takes as well.
  EXPECT_TRUE(player.waitForCommands(2));
  EXPECT_THAT(player.received(), ElementsAre("PlayPause", "Next"));
}

TEST_F(Players, ThatRefuseACommandAreReportedAndGetTheNextOne) {
  const FakePlayerProcess player(desktop_, "audacious", {"--error"});
  startTalmo("audacious");
  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(talmo_->waitForLines(failure)) << talmo_->log();
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines(failure, 2)) << talmo_->log();
  EXPECT_THAT(player.received(), ElementsAre("PlayPause", "Next"));
}

TEST_F(Players, OfOthersAreLeftAlone) {
  const FakePlayerProcess pinned(desktop_, "audacious");
  const FakePlayerProcess other(desktop_, "strawberry");
  startTalmo("audacious");
  keys_.tap("XF86AudioPlay");
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(pinned.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(other.received(), ElementsAre());
}

TEST_F(Players, ThatTakeKeyStrokesReactUnfocusedAndMinimised) {
  const std::vector<std::filesystem::path> tunes = writeTunes(desktop_.folder() / "Tunes");
  const std::unique_ptr<DesktopPlayer> vlc = DesktopPlayer::startVlc(desktop_, tunes);
  startTalmo("vlc");
  window_.focus();

  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(vlc->waitForStatus("Paused")) << talmo_->log();
  minimiseWindowOf(vlc->process().pid(), desktop_.displayName());
  window_.focus();
  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(vlc->waitForStatus("Playing")) << talmo_->log();
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(vlc->waitForTrack("tune-2.wav")) << talmo_->log();
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(vlc->waitForTrack("tune-1.wav")) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(Players, ThatAreNotRunningAreLaunchedByPlayPauseOnly) {
  install("vlc", DesktopPlayer::vlcCommand(desktop_));
  startTalmo("vlc");
  keys_.tap("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(talmo_->waitForLines("media key:", 2)) << talmo_->log();
  keys_.tap("XF86AudioPlay");
  EXPECT_TRUE(talmo_->waitForLines("Launching VLC")) << talmo_->log();
  MprisClient vlc(desktop_.busAddress(), "vlc");
  EXPECT_TRUE(waitUntil([&] { return vlc.playbackStatus() == "Stopped"; }, 30s)) << talmo_->log();
  EXPECT_EQ(desktop_.processes("vlc").size(), 1U);
  EXPECT_EQ(talmo_->lines("Launching").size(), 1U) << talmo_->log();
}

}  // namespace
}  // namespace talmo::test
