// The status item on a desktop whose bar shows other programs' icons itself: there is no window of
// ours, and nobody says where the icon is.

#include <memory>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "platform/StatusBar.h"
#include "tests/backend/interface/FakeNotifierHost.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PrivateDesktop.h"

// Qt's connection to the bar keeps one message for as long as the process runs. The name is the
// leak sanitizer's; without that nobody asks. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libQt6DBus.so";
}

namespace talmo::test {
namespace {

constexpr std::uint64_t leftDownAndRightUp = 0x12;
constexpr std::uint64_t mousePresses = 10;

class NotifierItem : public ::testing::Test {
 protected:
  NotifierItem() {
    item_ = services().statusBar().makeStatusItem(StatusBar::variableLength);
    item_->setImage({.name = "MenuBarIcon", .isTemplate = true});
    item_->setAction(leftDownAndRightUp, [this] {
      clicks_.push_back(services().application().currentEvent().value().type);
    });
    EXPECT_TRUE(platform_.runUntil([this] { return host_.item().has_value(); }));
  }

  LinuxPlatform& services() { return platform_.services(); }

  bool waitForClicks(std::size_t count) {
    return platform_.runUntil([&] { return clicks_.size() >= count; });
  }

  PrivateDesktop desktop_;
  FakeNotifierHost host_{desktop_.busAddress()};
  FocusWindow window_{desktop_.displayName()};
  PlatformOnDesktop platform_{desktop_, TALMO_BUNDLE_FOLDER, true};
  MousePresser mouse_{desktop_.displayName()};
  std::unique_ptr<StatusItem> item_;
  std::vector<InterfaceEvent::Type> clicks_;
};

TEST_F(NotifierItem, IsClickedThroughTheBar) {
  EXPECT_EQ(item_->button()->windowFrame(), std::nullopt);
  mouse_.moveTo(640, 10);
  host_.click("Activate");
  ASSERT_TRUE(waitForClicks(1));
  host_.click("ContextMenu");
  ASSERT_TRUE(waitForClicks(2));
  EXPECT_EQ(clicks_,
            (std::vector{InterfaceEvent::Type::leftMouseDown, InterfaceEvent::Type::rightMouseUp}));
  // It is where the pointer was.
  const Rect frame = item_->button()->windowFrame().value();
  EXPECT_EQ(frame.x, 640);
  EXPECT_NE(item_->button()->window(), 0U);
}

TEST_F(NotifierItem, DoesNotUndoWhatItsOwnPressHasDone) {
  int presses = 0;
  EventMonitors& monitors = services().eventMonitors();
  EventMonitors::Token token = 0;
  token = monitors.addGlobalMonitor(mousePresses, [&](const InterfaceEvent&) {
    ++presses;
    monitors.removeMonitor(token);
  });
  mouse_.click(640, 10);
  ASSERT_TRUE(platform_.runUntil([&] { return presses == 1; }));
  host_.click("Activate");
  host_.click("ContextMenu");
  // The first of the two has come before the second.
  ASSERT_TRUE(waitForClicks(1));
  EXPECT_EQ(clicks_, std::vector{InterfaceEvent::Type::rightMouseUp});

  // Later clicks count: nobody looks for presses elsewhere now.
  mouse_.click(640, 10);
  EXPECT_TRUE(platform_.runUntil([&] {
    host_.click("Activate");
    return clicks_.size() > 1;
  }));
}

}  // namespace
}  // namespace talmo::test
