// A real browser beside native players: who gets the keys in auto mode, and who is served while the
// browser hangs.

#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <string>

#include <gmock/gmock.h>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "tests/desktop/web/WebComponentTest.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Clock = std::chrono::steady_clock;

constexpr auto playKey = "XF86AudioPlay";
constexpr auto nextKey = "XF86AudioNext";

// What each question may take, and what a machine may that is busy with something else.
constexpr Clock::duration askTime = 1500ms;
constexpr Clock::duration consentTime = 3s;
constexpr Clock::duration scanTime = 2s;
constexpr Clock::duration commandTime = 2s;
constexpr Clock::duration grace = 4s;

const ImitationPage video{
    .name = "video", .tracks = {"First light", "Second wind"}, .artist = "Ada", .plays = true};

/// The browser answers nothing as long as this lives.
class HangingBrowser {
 public:
  HangingBrowser() { WebStageTest::stage().browser().process().signal(SIGSTOP); }
  ~HangingBrowser() { WebStageTest::stage().browser().process().signal(SIGCONT); }
  HangingBrowser(const HangingBrowser&) = delete;
  HangingBrowser& operator=(const HangingBrowser&) = delete;
};

class WebAutoRoutingTest : public WebStageTest {
 protected:
  WebAutoRoutingTest() { TalmoProcess::select(stage().desktop(), "auto"); }

  void start() {
    talmo_ = nullptr;
    talmo_ = std::make_unique<TalmoProcess>(stage().desktop(), TALMO_PROGRAM);
  }

  /// Waits until Talmo logs it that often.
  void expectLine(const std::string& text, std::size_t count = 1) {
    EXPECT_TRUE(talmo_->waitForLines(text, count)) << text << " is not in\n" << talmo_->log();
  }

  KeyPresser keys_{stage().desktop().displayName()};
  std::unique_ptr<TalmoProcess> talmo_;
};

}  // namespace

TEST_F(WebAutoRoutingTest, ATabThatPlaysWinsOverAPausedPlayerAndBack) {
  const auto audacious = DesktopPlayer::startAudacious(
      stage().desktop(), writeTunes(stage().desktop().folder() / "Tunes"));
  audacious->mpris().call("Pause");
  ASSERT_TRUE(audacious->waitForStatus("Paused"));
  stage().open(video, video.youTube());
  start();
  keys_.tap(playKey);
  expectLine("auto: routing to YouTube (owner=com.google.Chrome)");
  EXPECT_TRUE(site().waitFor("video", "action pause")) << talmo_->log();
  EXPECT_EQ(audacious->mpris().playbackStatus(), "Paused");

  audacious->mpris().call("Play");
  ASSERT_TRUE(audacious->waitForStatus("Playing"));
  // Started anew it does not take the session for that of a moment ago.
  start();
  keys_.tap(nextKey);
  EXPECT_TRUE(audacious->waitForTrack("tune-2.wav")) << talmo_->log();
  expectLine("auto: routing to Audacious (owner=org.atheme.audacious)");
  EXPECT_THAT(site().reports("video"), Not(Contains("action nexttrack")));
}

TEST_F(WebAutoRoutingTest, ABrowserThatHangsWhenItIsScannedCostsTheScanOnly) {
  const FakePlayerProcess player(stage().desktop(), "audacious", {"--status", "Stopped"});
  // The browser has the session, but none of its tabs is a player's, so each key has it scanned.
  stage().tabs().open("https://www.youtube.com/tune-220.wav");
  ASSERT_TRUE(waitUntil([] { return stage().session().playbackStatus() == "Playing"; }, 30s));
  start();
  keys_.tap(nextKey);
  expectLine("scan found 0 tab(s)");
  expectLine("(owner=com.google.Chrome)");

  const HangingBrowser hanging;
  const Clock::time_point start = Clock::now();
  std::size_t presses = 1;
  // A quick second press is not looked up again.
  const auto press = [&] {
    ++presses;
    keys_.tap(nextKey);
    return talmo_->lines("scan found 0 tab(s)").size() > 1;
  };
  EXPECT_TRUE(waitUntil(press, 20s, 500ms)) << talmo_->log();
  expectLine("(owner=com.google.Chrome)", 2);
  EXPECT_TRUE(player.waitForCommands(presses)) << talmo_->log();
  const Clock::duration taken = Clock::now() - start;
  RecordProperty("milliseconds", std::to_string(taken / 1ms));
  EXPECT_LT(taken, 2s + consentTime + scanTime + commandTime + grace);
}

TEST_F(WebComponentTest, APinnedTabsBrowserThatHangsDelaysAKeyForAPlayerByItsTimeOutsOnly) {
  FakePlayerProcess player(stage().desktop(), "audacious");
  stage().open(video, video.youTube());
  Preferences::setSelectedTargetAppID("youtube-web");
  const auto coordinator = AppCoordinator::make();
  coordinator->start();
  ASSERT_TRUE(coordinator->tap().isRunning());
  KeyPresser keys(stage().desktop().displayName());
  FocusWindow window(stage().desktop().displayName());
  window.focus();
  {
    const HangingBrowser hanging;
    const Clock::time_point pressed = Clock::now();
    keys.tap(nextKey);
    // What is typed after a key comes after what was decided about it.
    keys.tap("z");
    ASSERT_TRUE(waitUntil([&] { return window.transcript() == "+z -z"; })) << window.transcript();
    Preferences::setSelectedTargetAppID("audacious");
    coordinator->updateActiveController();
    keys.tap(nextKey);
    EXPECT_TRUE(runUntil([&] { return !player.received().empty(); }));
    const Clock::duration taken = Clock::now() - pressed;
    RecordProperty("milliseconds", std::to_string(taken / 1ms));
    EXPECT_LT(taken, consentTime + scanTime + askTime + commandTime + grace);
  }
  EXPECT_THAT(player.received(), ElementsAre("Next"));
  coordinator->tap().stop();
}

}  // namespace talmo::test
