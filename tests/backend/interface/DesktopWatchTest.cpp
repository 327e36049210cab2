#include <memory>
#include <QApplication>
#include <QWidget>
#include <string>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include "platform/Application.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/Workspace.h"
#include "tests/backend/interface/InterfaceDesk.h"

namespace talmo::test {
namespace {

/// What the platform posts when the desktop changes.
class DesktopWatching : public ::testing::Test {
 protected:
  DesktopWatching() {
    LinuxPlatform& services = desk_.services();
    services.workspaceNotifications().addObserver(Workspace::didActivateApplication,
                                                  [this] { ++activations_; });
    services.workspaceNotifications().addObserver(Workspace::activeSpaceDidChange,
                                                  [this] { ++spaces_; });
  }

  /// Asks the window manager for another desktop, as a pager does.
  static void switchToDesktop(std::uint32_t number) {
    const std::unique_ptr<XConnection> connection = XConnection::open();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = connection->root();
    message.type = connection->atom("_NET_CURRENT_DESKTOP");
    message.data.data32[0] = number;
    xcb_send_event(connection->get(), 0, connection->root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    // An answer to something later: the server has it before the connection goes.
    connection->children(connection->root());
  }

  InterfaceDesk desk_;
  int activations_ = 0;
  int spaces_ = 0;
};

TEST_F(DesktopWatching, TellsOfAnotherApplicationInFrontAndNotOfOurOwnWindows) {
  QWidget ours;
  ours.show();
  ours.activateWindow();
  desk_.waitForKeys(ours.winId());
  desk_.other().focus();
  ASSERT_TRUE(desk_.runUntil([&] { return desk_.windows().active() != ours.winId(); }));

  FocusWindow third(desk_.display(), {.title = "third", .pid = 1});
  third.focus();
  EXPECT_TRUE(desk_.runUntil([this] { return activations_ > 0; }));
  EXPECT_EQ(activations_, 1);
}

TEST_F(DesktopWatching, TellsOfAnotherDesktop) {
  switchToDesktop(1);
  EXPECT_TRUE(desk_.runUntil([this] { return spaces_ > 0; }));
  EXPECT_EQ(spaces_, 1);
}

TEST_F(DesktopWatching, SaysThatTheApplicationBehindOurWindowIsInFront) {
  const FocusWindow browser(desk_.display(), {.title = "browser", .windowClass = "chromium"});
  const auto front = [this] { return desk_.services().workspace().frontmostApplication(); };
  ASSERT_TRUE(desk_.runUntil([&] { return front() == "com.google.Chrome"; }));
  QWidget ours;
  ours.show();
  ours.activateWindow();
  desk_.waitForKeys(ours.winId());
  EXPECT_EQ(front(), "com.google.Chrome");
}

}  // namespace
}  // namespace talmo::test
