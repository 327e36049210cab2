#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "platform/linux/input/LinuxKeyEvents.h"
#include "platform/linux/x11/XConnection.h"
#include "tests/backend/input/InputDesk.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

constexpr ProcessIdentifier player = 4711;
constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t control = 0x40000;
constexpr std::uint64_t command = 0x100000;

class LinuxKeyEventsOnX : public testing::Test {
 protected:
  std::unique_ptr<FocusWindow> window(const FocusWindow::Options& options) const {
    return std::make_unique<FocusWindow>(desk.display.name(), options);
  }

  /// A press and a release.
  void post(LinuxKeyEvents& sender, std::uint16_t keyCode, std::uint64_t flags = 0) {
    sender.post({.keyCode = keyCode, .isKeyDown = true, .flags = flags}, player);
    sender.post({.keyCode = keyCode, .isKeyDown = false, .flags = flags}, player);
  }

  bool gets(const FocusWindow& window, const std::string& transcript) {
    return desk.runUntil([&] { return window.transcript() == transcript; }, 5s);
  }

  /// Writes a list of windows on the root, as a window manager does.
  void setRootList(const std::string& property, const std::vector<std::uint32_t>& windows) const {
    const auto connection = XConnection::open(desk.display.name());
    xcb_change_property(connection->get(), XCB_PROP_MODE_REPLACE, connection->root(),
                        connection->atom(property), XCB_ATOM_WINDOW, 32,
                        static_cast<std::uint32_t>(windows.size()), windows.data());
    static_cast<void>(connection->children(connection->root()));
  }

  InputDesk desk;
  LinuxKeyEvents events{{}};
};

TEST_F(LinuxKeyEventsOnX, CommandIsSentAsControl) {
  const auto main = window({.pid = player});
  post(events, 124, command);
  post(events, 123, control | shift);
  ASSERT_TRUE(gets(*main, "+Right -Right +Left -Left")) << main->transcript();
  const std::vector<RecordedKey> keys = main->keys();
  EXPECT_EQ(keys[0], (RecordedKey{"Right", true, true, XCB_MOD_MASK_CONTROL}));
  EXPECT_EQ(keys[1], (RecordedKey{"Right", false, true, XCB_MOD_MASK_CONTROL}));
  EXPECT_EQ(keys[2].state, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT);
}

TEST_F(LinuxKeyEventsOnX, UnknownKeyCodeIsSkipped) {
  const auto main = window({.pid = player});
  post(events, 0);
  post(events, 49);
  EXPECT_TRUE(gets(*main, "+space -space")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, ExceptionIsSentInPlaceOfTheStrokeWithoutItsModifiers) {
  std::vector<KeyboardEvent> asked;
  LinuxKeyEvents table([&asked](const KeyboardEvent& event, ProcessIdentifier process) {
    asked.push_back(event);
    return process == player && event.keyCode == 124
               ? std::optional<std::uint32_t>(XKB_KEY_XF86AudioNext)
               : std::nullopt;
  });
  const auto main = window({.pid = player});
  post(table, 124, command);
  post(table, 49);
  ASSERT_TRUE(gets(*main, "+XF86AudioNext -XF86AudioNext +space -space")) << main->transcript();
  EXPECT_EQ(main->keys()[0].state, 0);
  EXPECT_EQ(asked.front(), (KeyboardEvent{124, true, command}));
}

TEST_F(LinuxKeyEventsOnX, ExceptionThatNoKeyGivesIsSkipped) {
  LinuxKeyEvents table([](const KeyboardEvent& event, ProcessIdentifier) {
    return event.keyCode == 124 ? std::optional<std::uint32_t>(XKB_KEY_Thai_baht) : std::nullopt;
  });
  const auto main = window({.pid = player});
  post(table, 124);
  post(table, 49);
  EXPECT_TRUE(gets(*main, "+space -space")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, KeyThatMovesIsFollowed) {
  const auto main = window({.pid = player});
  post(events, 45);
  ASSERT_TRUE(gets(*main, "+n -n"));
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  desk.keyboard.remap(desk.keyboard.keycode("n"), {});
  desk.keyboard.remap(spare, {"n"});
  post(events, 45);
  EXPECT_TRUE(gets(*main, "+n -n +n -n")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, MainWindowGetsThemAmongAllOfTheProcess) {
  const auto helper = window({.pid = player, .width = 900, .height = 700, .isMapped = false});
  const auto tip =
      window({.pid = player, .width = 800, .height = 600, .type = "_NET_WM_WINDOW_TYPE_TOOLTIP"});
  const auto main = window({.pid = player, .width = 400, .height = 300});
  const auto small = window({.pid = player, .width = 30, .height = 30});
  const auto dialog =
      window({.pid = player, .width = 800, .height = 600, .transientFor = main->id()});
  post(events, 49);
  EXPECT_TRUE(gets(*main, "+space -space")) << main->transcript();
  for (const auto* other : {&helper, &tip, &small, &dialog}) {
    EXPECT_THAT((*other)->keys(), IsEmpty());
  }
}

TEST_F(LinuxKeyEventsOnX, OfWindowsLikeEachOtherTheOneUsedLastGetsThem) {
  const auto one = window({.pid = player});
  const auto two = window({.pid = player});
  setRootList("_NET_CLIENT_LIST", {one->id(), two->id()});
  setRootList("_NET_CLIENT_LIST_STACKING", {two->id(), one->id()});
  post(events, 49);
  EXPECT_TRUE(gets(*one, "+space -space")) << one->transcript();
  EXPECT_THAT(two->keys(), IsEmpty());
}

TEST_F(LinuxKeyEventsOnX, WindowThatTheWindowManagerDoesNotListIsFound) {
  const auto main = window({.pid = player});
  setRootList("_NET_CLIENT_LIST", {desk.window->id()});
  post(events, 49);
  EXPECT_TRUE(gets(*main, "+space -space")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, WithoutADisplayNothingIsSent) {
  ::setenv("DISPLAY", ":1234567", 1);
  post(events, 49);
  ::setenv("DISPLAY", desk.display.name().c_str(), 1);
  const auto main = window({.pid = player});
  post(events, 45);
  EXPECT_TRUE(gets(*main, "+n -n")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, AnotherServerIsConnectedToWhenTheFirstHasGone) {
  PrivateDisplay first;
  ::setenv("DISPLAY", first.name().c_str(), 1);
  {
    const FocusWindow main(first.name(), {.pid = player});
    post(events, 49);
    ASSERT_TRUE(gets(main, "+space -space"));
  }
  first.server().end();
  ::setenv("DISPLAY", desk.display.name().c_str(), 1);
  const auto main = window({.pid = player});
  post(events, 45);
  EXPECT_TRUE(gets(*main, "+n -n")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, ProcessThatHangsIsNotWaitedFor) {
  // Nobody reads what this connection is sent.
  const auto connection = XConnection::open(desk.display.name());
  const xcb_window_t hanging = xcb_generate_id(connection->get());
  const std::uint32_t mask = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
  xcb_create_window(connection->get(), XCB_COPY_FROM_PARENT, hanging, connection->root(), 0, 0, 50,
                    50, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                    &mask);
  const ProcessIdentifier process = 4712;
  xcb_change_property(connection->get(), XCB_PROP_MODE_REPLACE, hanging,
                      connection->atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &process);
  xcb_map_window(connection->get(), hanging);
  static_cast<void>(connection->children(connection->root()));
  for (int stroke = 0; stroke < 100; ++stroke) {
    events.post({.keyCode = 49, .isKeyDown = true}, process);
    events.post({.keyCode = 49, .isKeyDown = false}, process);
  }
  const auto main = window({.pid = player});
  post(events, 49);
  EXPECT_TRUE(gets(*main, "+space -space")) << main->transcript();
}

TEST_F(LinuxKeyEventsOnX, StrokesOfSeveralThreadsAllArrive) {
  const auto main = window({.pid = player});
  constexpr std::size_t strokes = 25;
  std::array<std::thread, 4> threads;
  for (std::thread& thread : threads) {
    thread = std::thread([&] {
      for (std::size_t stroke = 0; stroke < strokes; ++stroke) post(events, 49);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(desk.runUntil([&] { return main->keys().size() == threads.size() * 2 * strokes; }));
}

}  // namespace
}  // namespace talmo::test
