#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <ctime>
#include <pthread.h>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/backend/input/InputDesk.h"
#include "tests/contract/TapThread.h"
#include "tests/support/RivalClient.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LinuxEventTapLife : public testing::Test {
 protected:
  bool isInstalled(const TapThread& tap) {
    return desk.runUntil([&] { return tap.isDecided(); }) && tap.isInstalled();
  }

  void stop(TapThread& tap) {
    tap.stop();
    EXPECT_TRUE(desk.runUntil([&] { return tap.hasEnded(); }));
  }

  /// Until a key that nobody captures has arrived, and with it all before it.
  std::string windowGets() {
    desk.keyboard.tap("z");
    EXPECT_TRUE(desk.runUntil([&] { return desk.window->transcript().ends_with("+z -z"); }));
    return desk.window->transcript();
  }

  int regrabs() {
    int count = 0;
    for (const std::string& line : desk.platform.log().messages(LogLevel::info)) {
      if (line == "media keys regrabbed") ++count;
    }
    return count;
  }

  std::vector<std::string> errors() { return desk.platform.log().messages(LogLevel::error); }

  InputDesk desk;
};

TEST_F(LinuxEventTapLife, KeyThatAnotherProgramHoldsIsNamed) {
  RivalClient client(desk.display.name());
  const std::uint8_t keycode = desk.keyboard.keycode("XF86AudioNext");
  ASSERT_TRUE(client.grab(keycode));
  const TapThread tap(desk.dispatch, desk.eventTap);
  EXPECT_FALSE(isInstalled(tap));
  EXPECT_THAT(errors(), ElementsAre("XF86AudioNext (keycode " + std::to_string(keycode) +
                                    ") is grabbed by another program"));
  // Nothing else stays grabbed.
  EXPECT_TRUE(RivalClient(desk.display.name()).grab(desk.keyboard.keycode("XF86AudioPlay")));
}

TEST_F(LinuxEventTapLife, KeyThatAnotherProgramHoldsUnderALockIsNamedToo) {
  RivalClient client(desk.display.name());
  ASSERT_TRUE(client.grab(desk.keyboard.keycode("XF86AudioPrev"), XCB_MOD_MASK_LOCK));
  const TapThread tap(desk.dispatch, desk.eventTap);
  EXPECT_FALSE(isInstalled(tap));
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("XF86AudioPrev")));
}

TEST_F(LinuxEventTapLife, EveryKeycodeThatCarriesAMediaKeysymIsCaptured) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  // The stock map has several keys for playing and pausing.
  const std::vector<std::uint8_t> keycodes{172, 208, 215, 209, 171, 173, 176, 216};
  for (const std::uint8_t keycode : keycodes) desk.keyboard.tap(keycode);
  EXPECT_TRUE(desk.runUntil([&] { return tap.shownCount() == 2 * keycodes.size(); }));
  std::vector<std::int64_t> codes;
  for (const TapThread::Shown& shown : tap.shown()) {
    if ((shown.content->data1 & 0xFF00) == 0x0A00) codes.push_back(shown.content->data1 >> 16);
  }
  EXPECT_THAT(codes, ElementsAre(16, 16, 16, 16, 17, 18, 20, 19));
  EXPECT_EQ(windowGets(), "+z -z");
  stop(tap);
}

TEST_F(LinuxEventTapLife, ThereIsNoTapWithoutADisplay) {
  ::setenv("DISPLAY", ":1234567", 1);
  const TapThread tap(desk.dispatch, desk.eventTap);
  EXPECT_FALSE(isInstalled(tap));
  EXPECT_THAT(errors(), ElementsAre("there is no X display to capture media keys on"));
}

TEST_F(LinuxEventTapLife, RemovedTapFreesItsKeysAtOnce) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  RivalClient client(desk.display.name());
  const std::uint8_t keycode = desk.keyboard.keycode("XF86AudioPlay");
  ASSERT_FALSE(client.grab(keycode));
  std::atomic<bool> isRemoved = false;
  std::atomic<bool> wasFree = false;
  tap.perform([&] {
    tap.port().invalidate();
    wasFree = client.grab(keycode);
    isRemoved = true;
  });
  EXPECT_TRUE(desk.runUntil([&] { return isRemoved.load(); }));
  EXPECT_TRUE(wasFree);
  stop(tap);
}

TEST_F(LinuxEventTapLife, KeyThatMovesIsFollowed) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  const std::uint8_t old = desk.keyboard.keycode("XF86AudioNext");
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  desk.keyboard.remap(old, {"q"});
  desk.keyboard.remap(spare, {"XF86AudioNext"});
  ASSERT_TRUE(desk.runUntil([&] { return regrabs() > 0; }));
  desk.keyboard.tap(spare);
  EXPECT_TRUE(desk.runUntil([&] { return tap.shownCount() == 2; }));
  EXPECT_EQ(tap.shown().front().content->data1 >> 16, 17);
  EXPECT_THAT(errors(), IsEmpty());
  desk.keyboard.tap(old);
  EXPECT_EQ(windowGets(), "+q -q +z -z");
  EXPECT_EQ(tap.shownCount(), 2U);
  stop(tap);
}

TEST_F(LinuxEventTapLife, BurstOfMapChangesRegrabsOnce) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  // Changes the map, which by itself would change the grabs, and waits until the tap has served the
  // notice of it; returns how long that took.
  const auto change = [&](const std::vector<std::string>& keysyms) {
    const Uptime start = desk.dispatch.uptime();
    desk.keyboard.remap(spare, keysyms);
    std::atomic<int> rounds = 0;
    for (int round = 1; round <= 2; ++round) {
      tap.perform([&] { ++rounds; });
      EXPECT_TRUE(desk.runUntil([&] { return rounds == round; }));
    }
    return desk.dispatch.uptime() - start;
  };
  for (int attempt = 0; attempt < 20; ++attempt) {
    const int before = regrabs();
    Duration slowest = 0ms;
    for (int step = 0; step < 5; ++step) {
      slowest = std::max(slowest, change({"XF86AudioPlay"}));
      slowest = std::max(slowest, change({}));
    }
    slowest = std::max(slowest, change({"XF86AudioNext"}));
    ASSERT_TRUE(desk.runUntil([&] { return regrabs() > before; }));
    const int regrabbed = regrabs() - before;
    change({});
    ASSERT_TRUE(desk.runUntil([&] { return regrabs() > before + regrabbed; }));
    // On a machine that was busy elsewhere the changes were no burst.
    if (slowest > 25ms) continue;
    EXPECT_EQ(regrabbed, 1);
    stop(tap);
    return;
  }
  ADD_FAILURE() << "the machine is too slow for a burst of changes";
}

TEST_F(LinuxEventTapLife, KeyThatMovesOntoAnothersGrabIsNamedAndTheRestGoesOn) {
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  RivalClient client(desk.display.name());
  ASSERT_TRUE(client.grab(spare));
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.remap(spare, {"XF86AudioPlay"});
  EXPECT_TRUE(desk.runUntil([&] { return !errors().empty(); }));
  EXPECT_THAT(errors(), ElementsAre("XF86AudioPlay (keycode " + std::to_string(spare) +
                                    ") is grabbed by another program"));
  desk.keyboard.tap("XF86AudioNext");
  EXPECT_TRUE(desk.runUntil([&] { return tap.shownCount() == 2; }));
  stop(tap);
}

TEST_F(LinuxEventTapLife, KeyThatIsAMediaKeyWithShiftOnlyTypesItsLetterWithout) {
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  desk.keyboard.remap(spare, {"e", "XF86AudioPlay"});
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.tap(spare);
  desk.keyboard.press("Shift_L");
  desk.keyboard.tap(spare);
  desk.keyboard.release("Shift_L");
  desk.keyboard.tap(spare);
  EXPECT_EQ(windowGets(), "+e -e +Shift_L -Shift_L +e -e +z -z");
  EXPECT_EQ(tap.shownCount(), 2U);
  stop(tap);
}

TEST_F(LinuxEventTapLife, ShiftLetGoBeforeTheKeyDoesNotMakeItAnother) {
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  desk.keyboard.remap(spare, {"e", "XF86AudioPlay"});
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.press("Shift_L");
  desk.keyboard.press(spare);
  desk.keyboard.release("Shift_L");
  desk.keyboard.release(spare);
  EXPECT_EQ(windowGets(), "+Shift_L -Shift_L +z -z");
  ASSERT_EQ(tap.shownCount(), 2U);
  EXPECT_EQ(tap.shown().back().content->data1, 0x00100B00);
  stop(tap);
}

TEST_F(LinuxEventTapLife, LostServerIsToldOnceAndTheRunLoopGoesOnWithoutIt) {
  std::atomic<int> losses = 0;
  std::atomic<bool> onTapThread = false;
  desk.eventTap.onDisplayLost([&] {
    ++losses;
    onTapThread = !desk.dispatch.isMainThread();
  });
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  std::atomic<bool> isKnown = false;
  clockid_t tapClock{};
  tap.perform([&] {
    ::pthread_getcpuclockid(::pthread_self(), &tapClock);
    isKnown = true;
  });
  ASSERT_TRUE(desk.runUntil([&] { return isKnown.load(); }));

  desk.display.server().signal(SIGKILL);
  ASSERT_TRUE(desk.runUntil([&] { return losses > 0; }));
  EXPECT_TRUE(onTapThread);
  EXPECT_THAT(errors(), ElementsAre("the X server has gone; media keys are no longer captured"));

  const auto used = [&] {
    timespec time{};
    ::clock_gettime(tapClock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  };
  const auto before = used();
  EXPECT_FALSE(desk.runUntil([] { return false; }, 300ms));
  EXPECT_LT(used() - before, 30ms) << "the run loop spins";
  stop(tap);
  EXPECT_EQ(losses, 1);
}

TEST_F(LinuxEventTapLife, RemovingATapIsNoLoss) {
  std::atomic<int> losses = 0;
  desk.eventTap.onDisplayLost([&] { ++losses; });
  {
    TapThread tap(desk.dispatch, desk.eventTap);
    ASSERT_TRUE(isInstalled(tap));
    stop(tap);
  }
  desk.display.server().end();
  EXPECT_EQ(losses, 0);
  EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LinuxEventTapLife, KilledProgramLeavesTheKeyboardFree) {
  TestProcess program({.arguments = {TALMO_TAP_PROGRAM}});
  ASSERT_TRUE(waitUntil([&] { return program.output().find("ready") != std::string::npos; }))
      << program.output();
  desk.keyboard.press("XF86AudioPlay");
  ASSERT_TRUE(waitUntil([&] { return program.output().find("consumed") != std::string::npos; }))
      << program.output();
  program.signal(SIGKILL);
  ASSERT_EQ(program.waitForExit(10s), -SIGKILL);
  desk.keyboard.tap("a");
  desk.keyboard.release("XF86AudioPlay");
  EXPECT_EQ(windowGets(), "+a -a -XF86AudioPlay +z -z");
  // The letters came through because the server has cleared up after the program.
  TapThread tap(desk.dispatch, desk.eventTap);
  EXPECT_TRUE(isInstalled(tap));
  stop(tap);
}

TEST_F(LinuxEventTapLife, LogNamesNothingThatIsTyped) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.press("XF86AudioPlay");
  desk.keyboard.tap("s");
  desk.keyboard.release("XF86AudioPlay");
  EXPECT_EQ(windowGets(), "+s -s +z -z");
  stop(tap);
  EXPECT_THAT(desk.platform.log().lines(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
