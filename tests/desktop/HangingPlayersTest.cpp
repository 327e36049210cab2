// Players that answer nothing any more, and who else is served. The deadlines are the sums of what
// each question may take, and generous for a machine that is busy with something else.

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/MprisClient.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using Clock = std::chrono::steady_clock;

constexpr auto nextKey = "XF86AudioNext";
constexpr auto failure = "Apple Event to Audacious failed";

constexpr Clock::duration askTime = 1500ms;
constexpr Clock::duration commandTime = 2s;
constexpr Clock::duration grace = 4s;

class HangingPlayers : public DesktopTest {
 protected:
  /// Presses a key and waits until `player` has got it as its command number `count`. How long that
  /// took.
  Clock::duration pressUntil(const FakePlayerProcess& player, std::size_t count) {
    const Clock::time_point pressed = Clock::now();
    keys_.tap(nextKey);
    EXPECT_TRUE(player.waitForCommands(count)) << talmo_->log();
    const Clock::duration taken = Clock::now() - pressed;
    RecordProperty("milliseconds", std::to_string(taken / 1ms));
    return taken;
  }
};

TEST_F(HangingPlayers, ThatHadTheSessionGiveWayToTheOneThatPlays) {
  FakePlayerProcess owner(desktop_, "audacious");
  startTalmo("auto");
  pressUntil(owner, 1);
  owner.process().signal(SIGSTOP);
  const FakePlayerProcess other(desktop_, "strawberry");
  // Started anew it does not take the session for that of a moment ago.
  startTalmo();
  EXPECT_LT(pressUntil(other, 1), askTime + commandTime + grace);
  EXPECT_TRUE(talmo_->lines(failure).empty()) << talmo_->log();
}

TEST_F(HangingPlayers, ThatWereLastDoNotKeepTheNextKeyFromTheOneThatPlays) {
  const FakePlayerProcess last(desktop_, "audacious", {"--hang"});
  const FakePlayerProcess other(desktop_, "strawberry", {"--status", "Stopped"});
  TalmoProcess::select(desktop_, std::nullopt);
  std::ofstream(TalmoProcess::settingsFile(desktop_))
      << R"({"hasCompletedOnboarding": true, "lastResolvedTargetID": "audacious"})";
  startTalmo();
  keys_.tap(nextKey);
  EXPECT_TRUE(talmo_->waitForLines("auto: routing to Audacious (owner=none)")) << talmo_->log();
  // While that command waits for its answer, another player starts.
  ASSERT_TRUE(MprisClient(desktop_.busAddress(), "strawberry").call("Play"));
  EXPECT_LT(pressUntil(other, 2), commandTime + askTime + commandTime + grace);
  EXPECT_THAT(other.received(), ElementsAre("Play", "Next"));
  EXPECT_EQ(talmo_->lines(failure).size(), 1U) << talmo_->log();
}

/// The program's own coordinator in the test's process, as nothing else changes the selection of a
/// running Talmo yet.
class HangingPinnedPlayer : public DesktopTest {
 protected:
  HangingPinnedPlayer() : player_(desktop_, "audacious"), other_(desktop_, "strawberry") {
    TalmoProcess::select(desktop_, "audacious");
    coordinator_->start();
  }

  void select(const char* id) {
    Preferences::setSelectedTargetAppID(id);
    coordinator_->updateActiveController();
  }

  FakePlayerProcess player_;
  FakePlayerProcess other_;
  PlatformOnDesktop platform_{desktop_, std::filesystem::path(TALMO_PROGRAM).parent_path()};
  std::shared_ptr<AppCoordinator> coordinator_ = AppCoordinator::make();
};

TEST_F(HangingPinnedPlayer, DelaysAKeyForAnotherPlayerByItsTimeOutOnly) {
  ASSERT_TRUE(coordinator_->tap().isRunning());
  player_.process().signal(SIGSTOP);
  keys_.tap(nextKey);
  // What is typed after a key comes after what was decided about it.
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  select("strawberry");
  const Clock::time_point pressed = Clock::now();
  keys_.tap(nextKey);
  EXPECT_TRUE(platform_.runUntil([&] { return !other_.received().empty(); }));
  const Clock::duration taken = Clock::now() - pressed;
  RecordProperty("milliseconds", std::to_string(taken / 1ms));
  EXPECT_LT(taken, commandTime + grace);
  EXPECT_THAT(other_.received(), ElementsAre("Next"));
  player_.process().signal(SIGCONT);
  EXPECT_TRUE(player_.waitForCommands(1));
  EXPECT_THAT(player_.received(), ElementsAre("Next"));
  coordinator_->tap().stop();
}

}  // namespace
}  // namespace talmo::test
