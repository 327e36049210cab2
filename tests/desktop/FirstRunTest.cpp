#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "tests/desktop/DesktopTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/RivalClient.h"
#include "tests/support/ScreenWindows.h"
#include "tests/support/TalmoWindows.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// Talmo on a desktop that has never seen it.
class FirstRun : public DesktopTest {
 protected:
  /// The first run's window, when it is on screen.
  std::optional<xcb_window_t> window() {
    const auto seen = windows_.titled(talmo_->process().pid(), firstRunTitle);
    return seen ? std::optional(seen->id) : std::nullopt;
  }

  bool waitForWindow() {
    return waitUntil([this] { return window().has_value(); }, 20s);
  }
  bool waitUntilWindowIsGone() {
    return waitUntil([this] { return !window().has_value(); }, 20s);
  }

  /// Whether the window has the keys, as the window manager says.
  bool hasKeys() { return std::optional(windows_.active()) == window(); }

  /// Asks the window to go, as its window manager does.
  void close() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window().value();
    message.type = display_->atom("_NET_CLOSE_WINDOW");
    xcb_send_event(display_->get(), 0, display_->root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display_->get());
  }

  std::string settings() {
    std::ifstream file(TalmoProcess::settingsFile(desktop_));
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  bool waitUntilCompleted() {
    return waitUntil(
        [this] { return settings().find("\"hasCompletedOnboarding\": true") != std::string::npos; },
        20s);
  }

  /// Starts Talmo again; whether it came up without its window.
  bool startsQuietly() {
    startTalmo();
    // The start is over when it has said how it routes, and the window comes before that.
    return talmo_->lines("First launch").empty() && !window();
  }

  ScreenWindows windows_{desktop_.displayName()};
  const std::unique_ptr<XConnection> display_ = XConnection::open(desktop_.displayName());
};

TEST_F(FirstRun, ShowsItsWindowAtItsEndAndRoutesTheKeysAlready) {
  const FakePlayerProcess player(desktop_, "audacious");
  startTalmo();
  ASSERT_TRUE(waitForWindow()) << talmo_->log();
  EXPECT_FALSE(talmo_->lines("First launch; showing onboarding").empty());
  EXPECT_FALSE(talmo_->lines("Event tap running").empty());
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player.waitForCommands(1)) << talmo_->log();
  EXPECT_EQ(settings().find("hasCompletedOnboarding"), std::string::npos) << settings();
}

TEST_F(FirstRun, IsOverWhenItsButtonIsPressedAndNeverComesAgain) {
  startTalmo();
  ASSERT_TRUE(waitForWindow()) << talmo_->log();
  ASSERT_TRUE(waitUntil([this] { return hasKeys(); }));
  keys_.tap("Return");
  EXPECT_TRUE(waitUntilWindowIsGone());
  EXPECT_TRUE(waitUntilCompleted()) << settings();
  EXPECT_TRUE(talmo_->process().isRunning());
  EXPECT_TRUE(startsQuietly()) << talmo_->log();
}

TEST_F(FirstRun, IsOverWhenItsWindowIsClosedAndNeverComesAgain) {
  startTalmo();
  ASSERT_TRUE(waitForWindow()) << talmo_->log();
  close();
  EXPECT_TRUE(waitUntilWindowIsGone());
  EXPECT_TRUE(waitUntilCompleted()) << settings();
  EXPECT_TRUE(talmo_->process().isRunning());
  EXPECT_TRUE(startsQuietly()) << talmo_->log();
}

TEST_F(FirstRun, ComesAgainWhenTalmoEndedBeforeItWasOver) {
  startTalmo();
  ASSERT_TRUE(waitForWindow()) << talmo_->log();
  talmo_->process().signal(SIGTERM);
  EXPECT_EQ(talmo_->process().waitForExit(20s), 0) << talmo_->log();
  startTalmo();
  EXPECT_TRUE(waitForWindow()) << talmo_->log();
}

TEST_F(FirstRun, WaitsForAKeyThatSomebodyElseHoldsAndGoesOnWhenItIsFree) {
  const FakePlayerProcess player(desktop_, "audacious");
  RivalClient somebody(desktop_.displayName());
  ASSERT_TRUE(somebody.grab(keys_.keycode("XF86AudioNext"), XCB_MOD_MASK_ANY));
  startTalmo();
  ASSERT_TRUE(waitForWindow()) << talmo_->log();
  EXPECT_TRUE(talmo_->lines("Event tap running").empty()) << talmo_->log();
  somebody.ungrab(keys_.keycode("XF86AudioNext"));
  EXPECT_TRUE(talmo_->waitForLines("Accessibility permission granted during onboarding"))
      << talmo_->log();
  EXPECT_TRUE(talmo_->waitForLines("Event tap running")) << talmo_->log();
  keys_.tap("XF86AudioNext");
  EXPECT_TRUE(player.waitForCommands(1)) << talmo_->log();
}

}  // namespace
}  // namespace talmo::test
