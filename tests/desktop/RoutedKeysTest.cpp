#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// Talmo, pinned to a player that runs.
class RoutedKeys : public DesktopTest {
 protected:
  RoutedKeys() : player_(desktop_, "audacious") { startTalmo("audacious"); }

  FakePlayerProcess player_;
};

TEST_F(RoutedKeys, ReachThePlayerAndNotTheWindowInFront) {
  keys_.tap("XF86AudioPlay");
  keys_.tap("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(player_.waitForCommands(3)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("PlayPause", "Next", "Previous"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(RoutedKeys, SkipWithFastForwardAndRewind) {
  keys_.tap("XF86AudioForward");
  keys_.tap("XF86AudioRewind");
  EXPECT_TRUE(player_.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("Next", "Previous"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(RoutedKeys, WorkFromEveryKeyThatPlaysOrPauses) {
  const std::vector<std::uint8_t> playKeys = {172, 208, 215};
  for (const std::uint8_t key : playKeys) keys_.tap(key);
  keys_.tap("XF86AudioPause");
  EXPECT_TRUE(player_.waitForCommands(4)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("PlayPause", "PlayPause", "PlayPause", "PlayPause"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(RoutedKeys, SendNothingWhenTheyAreLetGo) {
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  keys_.release("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(player_.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("Next", "Previous"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(RoutedKeys, HeldForTwoSecondsSkipOneTrack) {
  keys_.setRepeat(200ms, 40ms);
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  // That a held key repeats on this desktop shows UnroutedKeys.RepeatInTheWindowInFront.
  EXPECT_FALSE(waitUntil([this] { return player_.received().size() > 1; }, 2s));
  keys_.release("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(player_.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("Next", "Previous"));
  EXPECT_EQ(talmo_->lines("media key:").size(), 2U) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(RoutedKeys, WorkWithCapsLockAndNumLock) {
  std::size_t presses = 0;
  for (const char* lock : {"Caps_Lock", "Num_Lock", "Caps_Lock"}) {
    keys_.toggleLock(lock);
    windowAfterTyping();
    keys_.tap("XF86AudioNext");
    ++presses;
    EXPECT_TRUE(player_.waitForCommands(presses)) << lock << '\n' << talmo_->log();
    EXPECT_THAT(windowAfterTyping(), ::testing::AnyOf("+z -z", "+Z -Z")) << lock;
  }
  EXPECT_EQ(player_.received().size(), presses);
}

TEST_F(RoutedKeys, LetEverythingThroughThatIsTypedWhileOneIsHeld) {
  keys_.setRepeat(150ms, 40ms);
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  // Once before the key repeats, and once while it does.
  std::string expected;
  const auto type = [&](const std::string& text) {
    for (const char letter : text) {
      const std::string key(1, letter);
      keys_.tap(key);
      expected += "+" + key + " -" + key + " ";
    }
    const std::string typed = expected.substr(0, expected.size() - 1);
    EXPECT_TRUE(waitUntil([&] { return window_.transcript() == typed; }))
        << window_.transcript() << "\ninstead of\n"
        << typed;
  };
  type("thequickbrownfox");
  // A repeat passes by: the hold outlasts the delay before the first.
  EXPECT_FALSE(waitUntil([this] { return player_.received().size() > 1; }, 500ms));
  type("jumpsoverthelazydog");
  keys_.release("XF86AudioNext");
  type("again");
  EXPECT_THAT(player_.received(), ElementsAre("Next"));
}

TEST_F(RoutedKeys, LetModifiersThroughThatArePressedWhileOneIsHeld) {
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(player_.waitForCommands(1)) << talmo_->log();
  keys_.press("Shift_L");
  keys_.tap("a");
  keys_.release("XF86AudioNext");
  keys_.release("Shift_L");
  EXPECT_EQ(windowAfterTyping(), "+Shift_L +A -A -Shift_L +z -z");
}

/// Talmo with a selection that it does not know, which turns routing off.
class UnroutedKeys : public DesktopTest {
 protected:
  UnroutedKeys() : player_(desktop_, "audacious") { startTalmo("a player of the future"); }

  FakePlayerProcess player_;
};

TEST_F(UnroutedKeys, ReachTheWindowInFront) {
  EXPECT_TRUE(talmo_->waitForLines("No target selected; media keys pass through"));
  keys_.tap("XF86AudioPlay");
  keys_.tap("XF86AudioNext");
  EXPECT_EQ(windowAfterTyping(),
            "+XF86AudioPlay -XF86AudioPlay +XF86AudioNext -XF86AudioNext +z -z");
  EXPECT_THAT(player_.received(), ElementsAre());
  EXPECT_TRUE(talmo_->lines("media key:").empty()) << talmo_->log();
}

TEST_F(UnroutedKeys, AreRealOnesInTheWindowInFront) {
  keys_.tap("XF86AudioPlay");
  ASSERT_TRUE(waitUntil([this] { return window_.keys().size() == 2; })) << window_.transcript();
  for (const RecordedKey& key : window_.keys()) EXPECT_FALSE(key.isSynthetic) << key;
}

TEST_F(UnroutedKeys, RepeatInTheWindowInFront) {
  keys_.setRepeat(200ms, 40ms);
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(waitUntil([this] { return window_.keys().size() >= 5; })) << window_.transcript();
  keys_.release("XF86AudioNext");
  EXPECT_THAT(windowAfterTyping(), ::testing::EndsWith("+XF86AudioNext -XF86AudioNext +z -z"));
  EXPECT_THAT(player_.received(), ElementsAre());
}

TEST_F(UnroutedKeys, LetEverythingThroughThatIsTypedWhileOneIsHeld) {
  keys_.press("XF86AudioNext");
  ASSERT_TRUE(waitUntil([this] { return !window_.keys().empty(); }));
  for (const char* key : {"h", "e", "y"}) keys_.tap(key);
  keys_.release("XF86AudioNext");
  EXPECT_EQ(windowAfterTyping(), "+XF86AudioNext +h -h +e -e +y -y -XF86AudioNext +z -z");
}

/// Talmo without a stored selection: automatic routing.
class AutomaticKeys : public DesktopTest {};

TEST_F(AutomaticKeys, AreTakenEvenBeforeAnythingPlays) {
  startTalmo(std::nullopt);
  EXPECT_TRUE(talmo_->waitForLines("Routing media keys automatically (follows what is playing)"));
  keys_.tap("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(talmo_->waitForLines("media key:", 2)) << talmo_->log();
  // To whom depends on what this machine has installed.
  EXPECT_TRUE(talmo_->waitForLines("(owner=none)")) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

TEST_F(AutomaticKeys, AreWhatAStoredRoutingOffMeans) {
  startTalmo("none");
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("(owner=none)")) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

}  // namespace
}  // namespace talmo::test
