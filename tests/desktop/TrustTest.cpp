// Keys that other programs take and give back.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/RivalClient.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr auto next = "XF86AudioNext";
constexpr auto previous = "XF86AudioPrev";

/// Less than the poll of a trusted program waits at least.
constexpr auto soonerThanThePoll = 9s;

class Trust : public DesktopTest {
 protected:
  Trust() : rival_(desktop_.displayName()), player_(desktop_, "audacious") {}

  bool waitForChange(const std::string& to, std::size_t count,
                     std::chrono::milliseconds patience = 20s) {
    return waitUntil(
        [&] { return talmo_->lines("Accessibility permission changed: " + to).size() >= count; },
        patience);
  }

  /// The tap goes after the change is logged.
  bool waitUntilNobodyHas(const std::string& key) {
    const std::uint8_t keycode = keys_.keycode(key);
    const bool isFree = waitUntil([&] { return rival_.grab(keycode); });
    rival_.ungrab(keycode);
    return isFree;
  }

  RivalClient rival_;
  FakePlayerProcess player_;
};

TEST_F(Trust, FallsAndReturnsWithTheKeysThatAnotherProgramTakesAndGivesBack) {
  // A shortcut of another program on a key that is none of the media keys.
  const std::uint8_t spare = keys_.unusedKeycode();
  ASSERT_TRUE(rival_.grab(spare));
  const auto started = std::chrono::steady_clock::now();
  startTalmo("audacious");
  EXPECT_THAT(talmo_->lines("Accessibility permission at launch: true"), SizeIs(1));
  const std::uint8_t old = keys_.keycode(next);
  keys_.tap(next);
  ASSERT_TRUE(player_.waitForCommands(1)) << talmo_->log();

  for (std::size_t round = 1; round <= 2; ++round) {
    // The person gives that key another meaning.
    keys_.remap(old, {"q"});
    keys_.remap(spare, {next});
    const auto left = started + soonerThanThePoll - std::chrono::steady_clock::now();
    EXPECT_TRUE(waitForChange(
        "false", round,
        round == 1 ? std::chrono::duration_cast<std::chrono::milliseconds>(left) : 20000ms))
        << talmo_->log();
    ASSERT_TRUE(waitUntilNobodyHas(previous)) << talmo_->log();
    keys_.tap(spare);
    EXPECT_THAT(rival_.pressed(), SizeIs(round));
    EXPECT_THAT(rival_.pressed(), Each(spare));
    // The others are nobody's.
    keys_.tap(previous);
    EXPECT_EQ(windowAfterTyping(), "+XF86AudioPrev -XF86AudioPrev +z -z");

    rival_.ungrab(spare);
    ASSERT_TRUE(waitForChange("true", round)) << talmo_->log();
    ASSERT_TRUE(talmo_->waitForLines("Event tap running", round + 1)) << talmo_->log();
    keys_.tap(spare);
    ASSERT_TRUE(player_.waitForCommands(2 * round)) << talmo_->log();
    keys_.tap(previous);
    ASSERT_TRUE(player_.waitForCommands(2 * round + 1)) << talmo_->log();
    EXPECT_EQ(windowAfterTyping(), "+z -z");
    EXPECT_THAT(rival_.pressed(), SizeIs(round));

    keys_.remap(spare, {});
    keys_.remap(old, {next});
    ASSERT_TRUE(talmo_->waitForLines("media keys regrabbed", round)) << talmo_->log();
    ASSERT_TRUE(waitUntil([&] { return rival_.grab(spare); }));
  }
  EXPECT_THAT(player_.received(), ElementsAre("Next", "Next", "Previous", "Next", "Previous"));
}

TEST_F(Trust, ComesWhenTheProgramQuitsThatHadTheKeysAtTheStart) {
  auto other = std::make_optional<RivalClient>(desktop_.displayName());
  ASSERT_TRUE(other->grab(keys_.keycode(next)));
  startTalmo("audacious");
  EXPECT_THAT(talmo_->lines("Accessibility permission at launch: false"), SizeIs(1));
  EXPECT_THAT(talmo_->lines("XF86AudioNext (keycode"), SizeIs(1)) << talmo_->log();
  EXPECT_THAT(talmo_->lines("Event tap"), IsEmpty()) << talmo_->log();
  keys_.tap(previous);
  EXPECT_EQ(windowAfterTyping(), "+XF86AudioPrev -XF86AudioPrev +z -z");

  other.reset();
  ASSERT_TRUE(waitForChange("true", 1)) << talmo_->log();
  ASSERT_TRUE(talmo_->waitForLines("Event tap running")) << talmo_->log();
  keys_.tap(next);
  keys_.tap(previous);
  EXPECT_TRUE(player_.waitForCommands(2)) << talmo_->log();
  EXPECT_THAT(player_.received(), ElementsAre("Next", "Previous"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

/// The descriptors of this process that are connections to an X server.
std::set<int> connectionsToDisplays() {
  std::set<int> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    const int descriptor = std::stoi(entry.path().filename());
    sockaddr_un peer{};
    socklen_t size = sizeof peer;
    if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
    if (peer.sun_family != AF_UNIX) continue;
    const std::string_view path(reinterpret_cast<const char*>(&peer), size);
    if (path.find("X11-unix") != std::string_view::npos) found.insert(descriptor);
  }
  return found;
}

/// The coordinator in the test's own process, whose descriptors can be reached.
class TrustInProcess : public DesktopTest {
 protected:
  TrustInProcess() : player_(desktop_, "audacious") { TalmoProcess::select(desktop_, "audacious"); }

  FakePlayerProcess player_;
  PlatformOnDesktop platform_{desktop_, std::filesystem::path(TALMO_PROGRAM).parent_path()};
  std::shared_ptr<AppCoordinator> coordinator_ = AppCoordinator::make();
};

TEST_F(TrustInProcess, FallsWhenTheServerClosesATapsConnectionAndReturnsByItself) {
  const std::set<int> others = connectionsToDisplays();
  coordinator_->start();
  ASSERT_TRUE(coordinator_->tap().isRunning());
  keys_.tap(next);
  ASSERT_TRUE(player_.waitForCommands(1));

  std::vector<int> own;
  std::ranges::set_difference(connectionsToDisplays(), others, std::back_inserter(own));
  ASSERT_THAT(own, SizeIs(2));
  ::shutdown(own.front(), SHUT_RDWR);
  ASSERT_TRUE(platform_.runUntil([&] { return !coordinator_->permission().isTrusted(); }));
  EXPECT_FALSE(coordinator_->tap().isRunning());
  EXPECT_TRUE(coordinator_->permission().sawChangeWhileUntrusted());

  ASSERT_TRUE(platform_.runUntil([&] { return coordinator_->permission().isTrusted(); }));
  EXPECT_TRUE(coordinator_->tap().isRunning());
  EXPECT_FALSE(coordinator_->permission().sawChangeWhileUntrusted());
  keys_.tap(previous);
  EXPECT_TRUE(player_.waitForCommands(2));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  coordinator_->tap().stop();
}

class Relaunch : public DesktopTest {
 protected:
  std::vector<pid_t> instances() const { return desktop_.processes("talmo-test-relaunch"); }
};

TEST_F(Relaunch, StartsAnotherInstanceThatHasTheKeysWhenThisOneHasEnded) {
  const FakePlayerProcess player(desktop_, "audacious");
  TalmoProcess::select(desktop_, "audacious");
  std::map<std::string, std::string> environment = desktop_.environment();
  environment["TALMO_TEST_FOLDER"] = desktop_.folder().string();
  TestProcess first({.arguments = {TALMO_RELAUNCH_PROGRAM}, .environment = environment});
  const auto lines = [&](std::string_view text) {
    const std::string log = first.output();
    std::size_t count = 0;
    for (std::size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) {
      ++count;
    }
    return count;
  };
  ASSERT_TRUE(waitUntil([&] { return lines("Event tap running") == 1; })) << first.output();
  keys_.tap(next);
  ASSERT_TRUE(player.waitForCommands(1)) << first.output();

  std::ofstream(desktop_.folder() / "relaunch") << "now";
  EXPECT_EQ(first.waitForExit(20s), 0) << first.output();
  // It writes where the first one wrote.
  ASSERT_TRUE(waitUntil([&] { return lines("Event tap running") == 2; }, 20s)) << first.output();
  EXPECT_THAT(instances(), SizeIs(1));
  EXPECT_NE(instances().front(), first.pid());
  keys_.tap(previous);
  ASSERT_TRUE(player.waitForCommands(2)) << first.output();
  EXPECT_THAT(player.received(), ElementsAre("Next", "Previous"));
  EXPECT_EQ(windowAfterTyping(), "+z -z");
}

}  // namespace
}  // namespace talmo::test
