#include <atomic>
#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/XReply.h"
#include "tests/backend/input/InputDesk.h"
#include "tests/contract/TapThread.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Shown = TapThread::Shown;

std::int64_t data1(const Shown& shown) {
  return shown.content ? shown.content->data1 : 0;
}

/// What a tap was shown, in short: "+16 *16 -16" for a press, a repeat and a release.
std::string transcript(const TapThread& tap) {
  std::string text;
  for (const Shown& shown : tap.shown()) {
    const std::int64_t word = data1(shown);
    const bool isPress = (word & 0xFF00) == 0x0A00;
    const char* const sign = (word & 1) != 0 ? "*" : isPress ? "+" : "-";
    text += (text.empty() ? "" : " ") + std::string(sign) + std::to_string(word >> 16);
  }
  return text;
}

class LinuxEventTapTyping : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(desk.runUntil([this] { return tap.isInstalled(); }));
  }

  void TearDown() override {
    tap.stop();
    EXPECT_TRUE(desk.runUntil([this] { return tap.hasEnded(); }));
  }

  /// What came since the last time. Types the Z key, and waits until the window has it: everything
  /// before it is settled then.
  std::string windowGets() {
    desk.keyboard.tap("z");
    const std::string end = "+z -z";
    EXPECT_TRUE(desk.runUntil([&] { return desk.window->transcript().ends_with(end); }))
        << desk.window->transcript();
    std::string text = desk.window->transcript();
    desk.window->clear();
    text.resize(text.size() - std::min(text.size(), end.size()));
    if (text.ends_with(' ')) text.pop_back();
    return text;
  }

  bool keyboardIsFree() const {
    const auto connection = XConnection::open(desk.display.name());
    const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
        connection->get(),
        xcb_grab_keyboard(connection->get(), 0, connection->root(), XCB_CURRENT_TIME,
                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  }

  InputDesk desk;
  // Which key types pass; the others are consumed.
  std::atomic<std::int64_t> passed = 0;
  std::atomic<int> slowness = 0;
  TapThread tap{desk.dispatch, desk.eventTap, [this](const Shown& shown) {
                  if (slowness > 0) {
                    desk.dispatch.makeSemaphore(0)->wait(std::chrono::milliseconds(slowness));
                  }
                  return (data1(shown) >> 16) == passed ? TapVerdict::pass : TapVerdict::consume;
                }};
};

// The keys come faster than anybody types, so that the server has the release of the media key
// waiting while the letters are answered for.
TEST_F(LinuxEventTapTyping, LettersReachTheWindowInOrderWhileAConsumedKeyIsHeld) {
  std::string expected;
  for (int round = 0; round < 20; ++round) {
    desk.keyboard.press("XF86AudioPlay");
    for (const char* const letter : {"t", "a", "l", "m", "o"}) {
      desk.keyboard.tap(letter);
      expected += std::string(expected.empty() ? "" : " ") + "+" + letter + " -" + letter;
    }
    desk.keyboard.release("XF86AudioPlay");
  }
  EXPECT_EQ(windowGets(), expected);
  EXPECT_EQ(tap.shownCount(), 40U);
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, LettersThatOverlapKeepTheirOrder) {
  desk.keyboard.press("a");
  desk.keyboard.press("XF86AudioNext");
  desk.keyboard.press("b");
  desk.keyboard.release("a");
  desk.keyboard.press("Shift_L");
  desk.keyboard.press("c");
  desk.keyboard.release("XF86AudioNext");
  desk.keyboard.release("c");
  desk.keyboard.release("Shift_L");
  desk.keyboard.release("b");
  EXPECT_EQ(windowGets(), "+a +b -a +Shift_L +C -C -Shift_L -b");
  EXPECT_EQ(transcript(tap), "+17 -17");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, LettersAreTypedAroundAPassedKey) {
  passed = 16;
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.tap("a");
  desk.keyboard.release("XF86AudioPlay");
  desk.keyboard.tap("b");
  EXPECT_EQ(windowGets(), "+XF86AudioPlay +a -a -XF86AudioPlay +b -b");
  EXPECT_EQ(transcript(tap), "+16 -16");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, ConsumedAndPassedKeysMayBeHeldTogether) {
  passed = 17;
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.press("XF86AudioNext");
  desk.keyboard.tap("a");
  desk.keyboard.release("XF86AudioPlay");
  desk.keyboard.tap("b");
  desk.keyboard.release("XF86AudioNext");
  EXPECT_EQ(windowGets(), "+XF86AudioNext +a -a +b -b -XF86AudioNext");
  EXPECT_EQ(transcript(tap), "+16 +17 -16 -17");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, TwoConsumedKeysMayBeHeldTogether) {
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.tap("a");
  desk.keyboard.press("XF86AudioNext");
  desk.keyboard.tap("b");
  desk.keyboard.release("XF86AudioPlay");
  desk.keyboard.tap("c");
  desk.keyboard.release("XF86AudioNext");
  EXPECT_EQ(windowGets(), "+a -a +b -b +c -c");
  EXPECT_EQ(transcript(tap), "+16 +17 -16 -17");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, LettersRepeatWhileAConsumedKeyIsHeld) {
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.setRepeat(30ms, 10ms);
  desk.keyboard.press("a");
  EXPECT_TRUE(desk.runUntil([this] { return desk.window->keys().size() >= 4; }));
  desk.keyboard.release("a");
  desk.keyboard.release("XF86AudioPlay");
  std::string expected = "+a";
  const std::string got = windowGets();
  while (expected.size() + 3 < got.size()) expected += " +a";
  EXPECT_EQ(got, expected + " -a");
  EXPECT_EQ(transcript(tap).substr(0, 3), "+16");
  EXPECT_TRUE(keyboardIsFree());
}

// Somebody else has the pointer then, so the keyboard cannot be kept still between two events, and
// the release of the media key may slip through. No letter may, and the keyboard has to be let go.
TEST_F(LinuxEventTapTyping, NoLetterIsLostWhileTheMouseIsDragged) {
  const auto dragging = XConnection::open(desk.display.name());
  const XReply<xcb_grab_pointer_reply_t> drag(xcb_grab_pointer_reply(
      dragging->get(),
      xcb_grab_pointer(dragging->get(), 0, dragging->root(), 0, XCB_GRAB_MODE_ASYNC,
                       XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME),
      nullptr));
  ASSERT_TRUE(drag && drag->status == XCB_GRAB_STATUS_SUCCESS);
  // All of a round is typed before the press of the media key is answered for.
  slowness = 50;
  for (int round = 0; round < 5; ++round) {
    desk.keyboard.press("XF86AudioPlay");
    for (const char* const letter : {"t", "a", "l", "m", "o"}) desk.keyboard.tap(letter);
    desk.keyboard.release("XF86AudioPlay");
    std::string got = windowGets();
    const std::string slipped = " -XF86AudioPlay";
    if (const std::size_t at = got.find(slipped); at != std::string::npos) {
      got.erase(at, slipped.size());
    }
    EXPECT_EQ(got, "+t -t +a -a +l -l +m -m +o -o");
    EXPECT_TRUE(desk.runUntil([this] { return keyboardIsFree(); }, 5s)) << "round " << round;
  }
}

TEST_F(LinuxEventTapTyping, KeysAreCapturedUnderEveryLock) {
  for (const char* const lock : {"Caps_Lock", "Num_Lock", "Caps_Lock"}) {
    desk.keyboard.toggleLock(lock);
    ASSERT_TRUE(desk.runUntil(
        [&] { return desk.window->transcript().ends_with(std::string("-") + lock); }));
    desk.window->clear();
    const std::size_t before = tap.shownCount();
    for (const char* const key : {"XF86AudioPlay", "XF86AudioNext", "XF86AudioPrev"}) {
      desk.keyboard.tap(key);
    }
    ASSERT_TRUE(desk.runUntil([&] { return tap.shownCount() >= before + 6; })) << lock;
    desk.keyboard.tap("Escape");
    ASSERT_TRUE(desk.runUntil([&] { return desk.window->transcript().ends_with("-Escape"); }));
    EXPECT_EQ(desk.window->transcript(), "+Escape -Escape") << lock;
  }
  desk.keyboard.toggleLock("Num_Lock");
}

TEST_F(LinuxEventTapTyping, ShortcutsWithAMediaKeyAreLeftAlone) {
  desk.keyboard.press("Control_L");
  desk.keyboard.tap("XF86AudioPlay");
  desk.keyboard.release("Control_L");
  EXPECT_EQ(windowGets(), "+Control_L +XF86AudioPlay -XF86AudioPlay -Control_L");
  EXPECT_EQ(tap.shownCount(), 0U);
}

TEST_F(LinuxEventTapTyping, SlowAnswerOnlyDelays) {
  slowness = 300;
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.tap("a");
  desk.keyboard.release("XF86AudioPlay");
  desk.keyboard.tap("b");
  EXPECT_EQ(windowGets(), "+a -a +b -b");
  EXPECT_EQ(transcript(tap), "+16 -16");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, SlowAnswerDoesNotMakeAPassedKeyRepeat) {
  slowness = 100;
  passed = 16;
  desk.keyboard.tap("XF86AudioPlay");
  desk.keyboard.tap("XF86AudioPlay");
  EXPECT_EQ(windowGets(), "+XF86AudioPlay -XF86AudioPlay +XF86AudioPlay -XF86AudioPlay");
  EXPECT_EQ(transcript(tap), "+16 -16 +16 -16");
}

TEST_F(LinuxEventTapTyping, SlowAnswerKeepsRepeatsRepeats) {
  slowness = 50;
  desk.keyboard.setRepeat(40ms, 10ms);
  desk.keyboard.press("XF86AudioNext");
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() >= 4; }));
  desk.keyboard.release("XF86AudioNext");
  EXPECT_EQ(windowGets(), "");
  std::string expected = "+17";
  const std::string got = transcript(tap);
  while (expected.size() + 4 < got.size()) expected += " *17";
  EXPECT_EQ(got, expected + " -17");
  EXPECT_TRUE(keyboardIsFree());
}

// The server makes repeats of a waiting press until it is answered for, and they come after the
// releases that wait by then. It takes the key to be down from then on.
TEST_F(LinuxEventTapTyping, SlowAnswerMakesNoPressOfARepeatAndLosesNone) {
  slowness = 100;
  desk.keyboard.setRepeat(60ms, 20ms);
  std::string expected;
  for (int count = 0; count < 5; ++count) {
    desk.keyboard.tap("XF86AudioNext");
    expected += "+17 -17 ";
  }
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() >= 10; }));
  EXPECT_EQ(windowGets(), "");
  ASSERT_TRUE(desk.keyboard.isDown(desk.keyboard.keycode("XF86AudioNext")));
  slowness = 0;
  desk.keyboard.tap("XF86AudioNext");
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() >= 12; }));
  EXPECT_EQ(windowGets(), "");
  EXPECT_EQ(transcript(tap), expected + "+17 -17");
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, KeysThatArePressedAmongLateRepeatsAllCount) {
  slowness = 100;
  desk.keyboard.setRepeat(60ms, 20ms);
  std::string expected;
  for (int count = 0; count < 5; ++count) {
    desk.keyboard.tap("XF86AudioNext");
    expected += "+17 -17 ";
  }
  // The third is being answered for, and repeats wait.
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() >= 5; }));
  desk.keyboard.tap("XF86AudioNext");
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() >= 12; }));
  EXPECT_EQ(windowGets(), "");
  EXPECT_EQ(transcript(tap), expected + "+17 -17");
}

TEST_F(LinuxEventTapTyping, TapThatIsSwitchedOffInTheMiddleLetsTheKeyboardGo) {
  desk.keyboard.press("XF86AudioPlay");
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() == 1; }));
  tap.port().enable(false);
  desk.keyboard.tap("a");
  EXPECT_EQ(windowGets(), "+a -a");
  desk.keyboard.release("XF86AudioPlay");
  EXPECT_EQ(tap.shownCount(), 1U);
  EXPECT_TRUE(keyboardIsFree());
}

TEST_F(LinuxEventTapTyping, TapThatIsRemovedInTheMiddleLetsTheKeyboardGo) {
  desk.keyboard.press("XF86AudioPlay");
  ASSERT_TRUE(desk.runUntil([this] { return tap.shownCount() == 1; }));
  std::atomic<bool> isRemoved = false;
  tap.perform([&] {
    tap.port().invalidate();
    isRemoved = true;
  });
  ASSERT_TRUE(desk.runUntil([&] { return isRemoved.load(); }));
  desk.keyboard.tap("a");
  desk.keyboard.release("XF86AudioPlay");
  EXPECT_EQ(windowGets(), "+a -a -XF86AudioPlay");
  EXPECT_TRUE(keyboardIsFree());
}

}  // namespace
}  // namespace talmo::test
