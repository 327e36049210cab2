#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <signal.h>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "tests/desktop/DesktopTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/RivalClient.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// How Talmo starts, fails and ends.
class Life : public DesktopTest {
 protected:
  /// Another program takes a key, whatever its modifiers. Whether it could.
  bool grab(const std::string& keysym) {
    return somebody_.grab(keys_.keycode(keysym), XCB_MOD_MASK_ANY);
  }

  /// Waits until the X server has noticed that nobody holds the key any more.
  bool waitUntilFree(const std::string& keysym) {
    if (!waitUntil([&] { return grab(keysym); })) return false;
    somebody_.ungrab(keys_.keycode(keysym));
    return true;
  }

  RivalClient somebody_{desktop_.displayName()};
};

TEST_F(Life, EndsInOrderAtATerminationSignalAndFreesTheKeys) {
  const FakePlayerProcess player(desktop_, "audacious");
  startTalmo("audacious");
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player.waitForCommands(1)) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");

  talmo_->process().signal(SIGTERM);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
  EXPECT_TRUE(waitUntilFree("XF86AudioNext"));
  keys_.tap("XF86AudioNext");
  EXPECT_EQ(windowAfterTyping(), "+XF86AudioNext -XF86AudioNext +z -z");
  EXPECT_THAT(player.received(), ElementsAre("Next"));
}

TEST_F(Life, EndsInOrderAtAnInterruption) {
  startTalmo("audacious");
  talmo_->process().signal(SIGINT);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
}

TEST_F(Life, FreesTheKeysWhenItIsKilled) {
  startTalmo("audacious");
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("media key: next down")) << talmo_->log();
  // What was typed after the key comes after its release, which nobody took otherwise.
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  talmo_->process().signal(SIGKILL);
  EXPECT_EQ(talmo_->process().waitForExit(20s), -SIGKILL);
  EXPECT_TRUE(waitUntilFree("XF86AudioNext"));
  keys_.tap("XF86AudioNext");
  EXPECT_EQ(windowAfterTyping(), "+XF86AudioNext -XF86AudioNext +z -z");
}

TEST_F(Life, FreesTheKeyboardWhenItIsKilledWhileAKeyIsHeld) {
  startTalmo("audacious");
  keys_.press("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("media key: next down")) << talmo_->log();
  talmo_->process().signal(SIGKILL);
  EXPECT_EQ(talmo_->process().waitForExit(20s), -SIGKILL);
  EXPECT_TRUE(waitUntilFree("XF86AudioNext"));
  keys_.release("XF86AudioNext");
  EXPECT_THAT(windowAfterTyping(), ::testing::EndsWith("+z -z"));
}

TEST_F(Life, EndsInOrderWhileACommandWaitsForAPlayer) {
  const FakePlayerProcess player(desktop_, "audacious", {"--hang"});
  startTalmo("audacious");
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(talmo_->waitForLines("media key: next down")) << talmo_->log();
  talmo_->process().signal(SIGTERM);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
}

TEST_F(Life, EndsWithAFailureWhenTheXServerGoes) {
  startTalmo("audacious");
  desktop_.xServer().signal(SIGKILL);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 1) << talmo_->log();
}

TEST_F(Life, GoesOnWhenTheSessionBusGoes) {
  install("audacious", FakePlayerProcess::command("audacious"));
  startTalmo("audacious");
  desktop_.sessionBus().signal(SIGKILL);
  ASSERT_TRUE(desktop_.sessionBus().waitForExit(10s));
  keys_.tap("XF86AudioNext");
  keys_.tap("XF86AudioPrev");
  EXPECT_TRUE(talmo_->waitForLines("media key:", 2)) << talmo_->log();
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  EXPECT_TRUE(talmo_->process().isRunning()) << talmo_->log();
}

TEST_F(Life, StaysAliveWithoutAKeyThatSomebodyElseHolds) {
  ASSERT_TRUE(grab("XF86AudioNext"));
  const FakePlayerProcess player(desktop_, "audacious");
  startTalmo("audacious");
  EXPECT_TRUE(talmo_->waitForLines("Accessibility permission at launch: false"));
  EXPECT_FALSE(talmo_->lines("XF86AudioNext").empty()) << talmo_->log();

  // The keys that nobody holds reach the window in front.
  keys_.tap("XF86AudioPlay");
  EXPECT_EQ(windowAfterTyping(), "+XF86AudioPlay -XF86AudioPlay +z -z");
  EXPECT_THAT(player.received(), ElementsAre());
  EXPECT_TRUE(talmo_->process().isRunning()) << talmo_->log();
}

TEST_F(Life, KeepsADamagedSettingsFileAsideAndRoutesAutomatically) {
  const std::filesystem::path settings = TalmoProcess::settingsFile(desktop_);
  const std::string damaged = R"({"selectedTargetAppID": "audac)";
  TalmoProcess::select(desktop_, "audacious");
  std::ofstream(settings) << damaged;

  startTalmo();
  EXPECT_TRUE(talmo_->waitForLines("Routing media keys automatically (follows what is playing)"));
  EXPECT_FALSE(talmo_->lines(settings.filename()).empty()) << talmo_->log();
  std::size_t kept = 0;
  for (const auto& entry : std::filesystem::directory_iterator(settings.parent_path())) {
    std::ifstream file(entry.path());
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (text == damaged && entry.path() != settings) ++kept;
  }
  EXPECT_EQ(kept, 1U);
}

}  // namespace
}  // namespace talmo::test
