#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <signal.h>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "tests/desktop/SilentPanelTest.h"
#include "tests/support/PrivateSession.h"
#include "tests/support/RivalClient.h"
#include "tests/support/TalmoWindows.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using ::testing::IsEmpty;

constexpr auto patience = 20s;

constexpr const char* mediaKeys[] = {"XF86AudioPlay", "XF86AudioNext", "XF86AudioPrev",
                                     "XF86AudioForward", "XF86AudioRewind"};

/// What Talmo leaves behind when it ends.
class QuittingTest : public SilentPanelTest {
 protected:
  /// Opens the panel, pins the first player that it lists and returns which one. The helper runs.
  std::string pinOnTheOpenPanel() {
    startWithTray(std::nullopt);
    openPanel();
    EXPECT_TRUE(waitUntil([this] { return helpers().size() == 1; }, patience)) << talmo_->log();
    EXPECT_TRUE(changeBy("Down"));
    keys_.tap("Return");
    EXPECT_TRUE(waitUntil([this] { return !storedSelection().empty(); }, patience));
    return storedSelection();
  }

  void showFirstRun() {
    tray_.emplace(desktop_);
    startTalmo();
    ASSERT_TRUE(waitUntil(
        [this] { return icon() && windows_.titled(talmo_->process().pid(), firstRunTitle); },
        patience))
        << talmo_->log();
    EXPECT_FALSE(talmo_->lines("Event tap running").empty()) << talmo_->log();
  }

  std::vector<pid_t> helpers() const { return desktop_.processes("perl"); }

  /// Whether nothing runs any more that Talmo has started for itself.
  bool waitUntilNothingRuns() const {
    return waitUntil(
        [this] {
          for (const char* const program : {"osascript", "perl", "pkill", "talmo"}) {
            if (!desktop_.processes(program).empty()) return false;
          }
          return true;
        },
        patience);
  }

  /// The settings as they are stored; nothing when there are none. Half of them are a failure.
  std::optional<nlohmann::json> settings() const {
    const std::filesystem::path file = TalmoProcess::settingsFile(desktop_);
    if (!std::filesystem::exists(file)) return std::nullopt;
    std::ifstream stream(file);
    nlohmann::json stored = nlohmann::json::parse(stream, nullptr, false);
    EXPECT_TRUE(stored.is_object()) << stored;
    // Nor is anything beside them.
    const std::filesystem::directory_iterator folder(file.parent_path());
    EXPECT_EQ(std::distance(begin(folder), end(folder)), 1);
    return stored;
  }

  void expectPinned(const std::string& id) const {
    const nlohmann::json expected = {{"hasBeenAccessibilityTrusted", true},
                                     {"hasCompletedOnboarding", true},
                                     {"selectedTargetAppID", id}};
    EXPECT_EQ(settings(), expected);
  }

  void expectFirstRunStillToCome() const {
    const std::optional<nlohmann::json> stored = settings();
    EXPECT_FALSE(stored && stored->contains("hasCompletedOnboarding")) << *stored;
  }

  /// Every key can be taken by another program, and a press reaches the window in front.
  void expectFreeKeys() {
    RivalClient somebody(desktop_.displayName());
    for (const char* const key : mediaKeys) {
      const std::uint8_t code = keys_.keycode(key);
      EXPECT_TRUE(waitUntil([&] { return somebody.grab(code, XCB_MOD_MASK_ANY); })) << key;
      somebody.ungrab(code);
    }
    window_.focus();
    window_.clear();
    keys_.tap("XF86AudioNext");
    EXPECT_EQ(windowAfterTyping(), "+XF86AudioNext -XF86AudioNext +z -z");
    EXPECT_THAT(player_.received(), IsEmpty());
    EXPECT_THAT(otherPlayer_.received(), IsEmpty());
  }

  PrivateSession session_;
};

/// A way to end Talmo while everything around it goes on.
struct Way {
  const char* name;
  /// 0 for the menu and for a logout.
  int signal = 0;
  bool isLogout = false;
};

std::ostream& operator<<(std::ostream& stream, const Way& way) {
  return stream << way.name;
}

class Quitting : public QuittingTest, public testing::WithParamInterface<Way> {
 protected:
  Quitting() { desktop_.setVariable("SESSION_MANAGER", session_.address()); }

  void quit() {
    if (GetParam().signal != 0) {
      talmo_->process().signal(GetParam().signal);
    } else if (GetParam().isLogout) {
      ASSERT_TRUE(session_.waitForProgram());
      session_.logOut();
    } else {
      clickQuit();
    }
    EXPECT_EQ(talmo_->process().waitForExit(patience), 0) << talmo_->log();
  }

 private:
  void clickQuit() {
    clickIcon(MousePresser::right);
    ASSERT_TRUE(waitUntil([this] { return menu().has_value(); }, patience));
    const PixelArea area = menu()->area;
    mouse_.click(area.middleX(), area.bottom() - area.height / 4);
  }
};

TEST_P(Quitting, WithAnOpenPanelFreesTheKeysEndsTheHelperAndKeepsTheSettings) {
  const std::string pinned = pinOnTheOpenPanel();
  quit();
  EXPECT_TRUE(waitUntilNothingRuns());
  expectPinned(pinned);
  expectFreeKeys();
}

TEST_P(Quitting, DuringTheFirstRunFreesTheKeysAndDoesNotCountAsFinishing) {
  showFirstRun();
  quit();
  EXPECT_TRUE(waitUntilNothingRuns());
  expectFirstRunStillToCome();
  expectFreeKeys();
}

INSTANTIATE_TEST_SUITE_P(Ways, Quitting,
                         testing::Values(Way{.name = "FromTheMenu"},
                                         Way{.name = "BySigterm", .signal = SIGTERM},
                                         Way{.name = "BySigint", .signal = SIGINT},
                                         Way{.name = "BySighup", .signal = SIGHUP},
                                         Way{.name = "ByALogout", .isLogout = true}),
                         [](const auto& one) { return one.param.name; });

/// What goes at the end of a session, in this order.
struct Loss {
  const char* name;
  bool isBusFirst = false;
  bool isBusLast = false;
};

std::ostream& operator<<(std::ostream& stream, const Loss& loss) {
  return stream << loss.name;
}

class LosingTheSession : public QuittingTest, public testing::WithParamInterface<Loss> {
 protected:
  void lose() {
    if (GetParam().isBusFirst) desktop_.sessionBus().signal(SIGKILL);
    desktop_.xServer().signal(SIGKILL);
    if (GetParam().isBusLast) desktop_.sessionBus().signal(SIGKILL);
    EXPECT_EQ(talmo_->process().waitForExit(patience), 1) << talmo_->log();
    EXPECT_EQ(talmo_->lines("the X display has gone; leaving").size(), 1U) << talmo_->log();
  }
};

TEST_P(LosingTheSession, WithAnOpenPanelEndsTheHelperAndKeepsTheSettings) {
  const std::string pinned = pinOnTheOpenPanel();
  lose();
  EXPECT_TRUE(waitUntilNothingRuns());
  expectPinned(pinned);
}

TEST_P(LosingTheSession, DuringTheFirstRunDoesNotCountAsFinishing) {
  showFirstRun();
  lose();
  EXPECT_TRUE(waitUntilNothingRuns());
  expectFirstRunStillToCome();
}

INSTANTIATE_TEST_SUITE_P(Losses, LosingTheSession,
                         testing::Values(Loss{.name = "TheDisplay"},
                                         Loss{.name = "TheDisplayThenTheBus", .isBusLast = true},
                                         Loss{.name = "TheBusThenTheDisplay", .isBusFirst = true}),
                         [](const auto& one) { return one.param.name; });

TEST_F(QuittingTest, ByForceFreesTheKeysAndTheHelperFollows) {
  const std::string pinned = pinOnTheOpenPanel();
  talmo_->process().signal(SIGKILL);
  EXPECT_EQ(talmo_->process().waitForExit(patience), -SIGKILL);
  EXPECT_TRUE(waitUntilNothingRuns());
  expectPinned(pinned);
  expectFreeKeys();
}

TEST_F(QuittingTest, WhenItsWindowIsKilledFreesTheKeysAndEndsTheHelper) {
  const std::string pinned = pinOnTheOpenPanel();
  const std::unique_ptr<XConnection> display = XConnection::open(desktop_.displayName());
  xcb_kill_client(display->get(), panel().value().id);
  xcb_flush(display->get());
  EXPECT_EQ(talmo_->process().waitForExit(patience), 1) << talmo_->log();
  EXPECT_TRUE(waitUntilNothingRuns());
  expectPinned(pinned);
  expectFreeKeys();
}

}  // namespace
}  // namespace talmo::test
