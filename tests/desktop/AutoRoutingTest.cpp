// The built Talmo in auto mode, with real media keys: which player a key goes to.

#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr auto playKey = "XF86AudioPlay";
constexpr auto nextKey = "XF86AudioNext";
constexpr auto previousKey = "XF86AudioPrev";

class AutoRouting : public DesktopTest {
 protected:
  AutoRouting() { TalmoProcess::select(desktop_, "auto"); }

  /// Waits until Talmo logs it that often.
  void expectLine(const std::string& text, std::size_t count = 1) {
    EXPECT_TRUE(talmo_->waitForLines(text, count)) << text << " is not in\n" << talmo_->log();
  }

  std::string settings() const {
    std::ifstream file(TalmoProcess::settingsFile(desktop_));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  /// What a person does to a player by hand.
  void act(const std::string& player, const char* method) const {
    ASSERT_TRUE(MprisClient(desktop_.busAddress(), player).call(method));
  }
};

/// Two real players. Audacious was started last, so its window is in front and has the keyboard.
class AutoRoutingOfTwo : public AutoRouting {
 protected:
  AutoRoutingOfTwo()
      : tunes_(writeTunes(desktop_.folder() / "Tunes")),
        vlc_(DesktopPlayer::startVlc(desktop_, tunes_)),
        audacious_(DesktopPlayer::startAudacious(desktop_, tunes_)) {
    audacious_->mpris().call("Pause");
    if (!audacious_->waitForStatus("Paused")) throw std::runtime_error("Audacious plays on");
  }

  const std::vector<std::filesystem::path> tunes_;
  const std::unique_ptr<DesktopPlayer> vlc_;
  const std::unique_ptr<DesktopPlayer> audacious_;
};

TEST_F(AutoRoutingOfTwo, TheOneThatPlaysGetsTheKeyWhicheverWasTouchedLast) {
  startTalmo();
  keys_.tap(nextKey);
  EXPECT_TRUE(vlc_->waitForTrack("tune-2.wav")) << talmo_->log();
  expectLine("auto: routing to VLC (owner=org.videolan.vlc)");

  audacious_->mpris().call("Play");
  ASSERT_TRUE(audacious_->waitForStatus("Playing"));
  vlc_->mpris().call("Pause");
  ASSERT_TRUE(vlc_->waitForStatus("Paused"));
  // Started anew it remembers the last player, but not the session of a moment ago.
  startTalmo();
  keys_.tap(nextKey);
  EXPECT_TRUE(audacious_->waitForTrack("tune-2.wav")) << talmo_->log();
  expectLine("auto: routing to Audacious (owner=org.atheme.audacious)");
  EXPECT_EQ(vlc_->mpris().playbackStatus(), "Paused");
  EXPECT_EQ(vlc_->mpris().track(), "tune-2.wav");
}

TEST_F(AutoRoutingOfTwo, PauseAndResumeGoToTheSamePlayerAlthoughTheOtherIsOpen) {
  startTalmo();
  keys_.tap(playKey);
  EXPECT_TRUE(vlc_->waitForStatus("Paused")) << talmo_->log();
  keys_.tap(playKey);
  EXPECT_TRUE(vlc_->waitForStatus("Playing")) << talmo_->log();
  keys_.tap(playKey);
  EXPECT_TRUE(vlc_->waitForStatus("Paused")) << talmo_->log();
  // The same for a Talmo that has not seen any of this and knows no last player.
  TalmoProcess::select(desktop_, "auto");
  startTalmo();
  keys_.tap(playKey);
  EXPECT_TRUE(vlc_->waitForStatus("Playing")) << talmo_->log();
  expectLine("auto: routing to VLC (owner=org.videolan.vlc)");
  EXPECT_EQ(audacious_->mpris().playbackStatus(), "Paused");
}

TEST_F(AutoRouting, AQuickSecondPressGoesToTheSamePlayerAlthoughAnotherOneStarted) {
  const FakePlayerProcess first(desktop_, "audacious");
  const FakePlayerProcess second(desktop_, "strawberry", {"--status", "Paused"});
  startTalmo();
  keys_.tap(nextKey);
  ASSERT_TRUE(first.waitForCommands(1)) << talmo_->log();
  act("strawberry", "Play");
  keys_.tap(previousKey);
  EXPECT_TRUE(first.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(first.received(), ElementsAre("Next", "Previous"));
  EXPECT_THAT(second.received(), ElementsAre("Play"));
  EXPECT_EQ(talmo_->lines("auto: routing to").size(), 1U) << talmo_->log();
}

TEST_F(AutoRouting, APlayerThatStartsLaterGetsTheKeysWhenTheSessionSeenBeforeIsOld) {
  const FakePlayerProcess first(desktop_, "audacious");
  const FakePlayerProcess second(desktop_, "strawberry", {"--status", "Paused"});
  startTalmo();
  keys_.tap(nextKey);
  ASSERT_TRUE(first.waitForCommands(1)) << talmo_->log();
  act("audacious", "Pause");
  act("strawberry", "Play");
  // Pressed again and again; what was seen of the session at the first press is believed for 15 s.
  const auto press = [&] {
    keys_.tap(nextKey);
    return second.received().size() > 1;
  };
  EXPECT_TRUE(waitUntil(press, 40s, 1s)) << talmo_->log();
  expectLine("auto: routing to Strawberry (owner=org.strawberrymusicplayer.strawberry)");
}

TEST_F(AutoRouting, WithNothingRunningPlayPauseLaunchesTheFirstInstalledPlayer) {
  install("audacious", FakePlayerProcess::command("audacious"));
  install("vlc", FakePlayerProcess::command("vlc"));
  startTalmo();
  keys_.tap(nextKey);
  keys_.tap(previousKey);
  keys_.tap(playKey);
  expectLine("Launching VLC");
  MprisClient vlc(desktop_.busAddress(), "vlc");
  EXPECT_TRUE(waitUntil([&] { return !vlc.playbackStatus().empty(); })) << talmo_->log();
  // Commands run in order, so the two presses before have done nothing.
  EXPECT_EQ(talmo_->lines("Launching").size(), 1U) << talmo_->log();
  EXPECT_EQ(desktop_.processes("talmo-fake-player").size(), 1U);
  EXPECT_EQ(talmo_->lines("auto: routing to VLC (owner=none)").size(), 1U) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(AutoRouting, ASessionWhosePlayerHasQuitFallsBackToTheLastPlayerThatStillRuns) {
  auto last = std::make_unique<FakePlayerProcess>(desktop_, "strawberry");
  startTalmo();
  keys_.tap(nextKey);
  ASSERT_TRUE(last->waitForCommands(1)) << talmo_->log();
  EXPECT_TRUE(waitUntil([&] {
    return settings().find(R"("lastResolvedTargetID": "strawberry")") != std::string::npos;
  })) << settings();
  act("strawberry", "Stop");
  {
    const FakePlayerProcess owner(desktop_, "audacious");
  }
  // Talmo started anew knows of it from its settings alone.
  startTalmo();
  keys_.tap(previousKey);
  expectLine("auto: routing to Strawberry (owner=none)");
  EXPECT_TRUE(last->waitForCommands(3)) << talmo_->log();
  EXPECT_THAT(last->received(), ElementsAre("Next", "Stop", "Previous"));

  // With that one gone as well, who is next depends on what this machine has installed.
  last = nullptr;
  startTalmo();
  EXPECT_THAT(settings(), HasSubstr(R"("lastResolvedTargetID": "strawberry")"));
  keys_.tap(previousKey);
  expectLine("auto: ");
  EXPECT_TRUE(talmo_->lines("auto: routing to Strawberry").empty()) << talmo_->log();
}

}  // namespace
}  // namespace talmo::test
