// Whether the keys are ours, on a real X server.

#include <atomic>
#include <csignal>
#include <memory>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "platform/linux/input/LinuxAccessibility.h"
#include "platform/linux/input/LinuxEventTapPort.h"
#include "tests/backend/input/InputDesk.h"
#include "tests/contract/TapThread.h"
#include "tests/support/RivalClient.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LinuxTrust : public testing::Test {
 protected:
  LinuxTrust() {
    desk.eventTap.onKeysLost([this] { ++losses; });
  }

  bool isInstalled(const TapThread& tap) {
    return desk.runUntil([&] { return tap.isDecided(); }) && tap.isInstalled();
  }

  void stop(TapThread& tap) {
    tap.stop();
    EXPECT_TRUE(desk.runUntil([&] { return tap.hasEnded(); }));
  }

  std::uint8_t keycode(const std::string& keysym) { return desk.keyboard.keycode(keysym); }

  std::string isGrabbed(const std::string& keysym, std::uint8_t keycode) {
    return keysym + " (keycode " + std::to_string(keycode) + ") is grabbed by another program";
  }

  std::vector<std::string> errors() { return desk.platform.log().messages(LogLevel::error); }

  InputDesk desk;
  std::atomic<int> losses = 0;
  LinuxAccessibility accessibility{desk.eventTap};
};

TEST_F(LinuxTrust, KeysThatAnotherProgramHoldsAreNamedOncePerStretch) {
  RivalClient rival(desk.display.name());
  const std::uint8_t next = keycode("XF86AudioNext");
  const std::uint8_t previous = keycode("XF86AudioPrev");
  ASSERT_TRUE(rival.grab(next));
  for (int round = 0; round < 3; ++round) EXPECT_FALSE(accessibility.isProcessTrusted());
  EXPECT_THAT(errors(), ElementsAre(isGrabbed("XF86AudioNext", next)));

  rival.ungrab(next);
  ASSERT_TRUE(rival.grab(previous));
  for (int round = 0; round < 3; ++round) EXPECT_FALSE(accessibility.isProcessTrusted());
  rival.ungrab(previous);
  EXPECT_TRUE(accessibility.isProcessTrusted());
  ASSERT_TRUE(rival.grab(previous));
  EXPECT_FALSE(accessibility.isProcessTrusted());
  EXPECT_THAT(errors(),
              ElementsAre(isGrabbed("XF86AudioNext", next), isGrabbed("XF86AudioPrev", previous),
                          isGrabbed("XF86AudioPrev", previous)));
}

TEST_F(LinuxTrust, AKeyThatAnotherHoldsUnderALockCountsToo) {
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(rival.grab(keycode("XF86AudioPlay"), XCB_MOD_MASK_LOCK));
  EXPECT_FALSE(accessibility.isProcessTrusted());
}

TEST_F(LinuxTrust, AKeyThatNoTapWouldGrabMayBeAnothers) {
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(rival.grab(keycode("XF86AudioPlay"), XCB_MOD_MASK_CONTROL));
  ASSERT_TRUE(rival.grab(keycode("XF86AudioStop")));
  EXPECT_TRUE(accessibility.isProcessTrusted());
}

TEST_F(LinuxTrust, ThereIsNoneWithoutADisplay) {
  ::setenv("DISPLAY", ":1234567", 1);
  EXPECT_FALSE(accessibility.isProcessTrusted());
  EXPECT_FALSE(accessibility.isProcessTrustedWithPrompt(true));
  EXPECT_THAT(errors(), ElementsAre("there is no X display to capture media keys on"));
}

TEST_F(LinuxTrust, AskingKeepsNothing) {
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(accessibility.isProcessTrusted());
  EXPECT_TRUE(rival.grab(keycode("XF86AudioPlay"), XCB_MOD_MASK_ANY));
}

TEST_F(LinuxTrust, OurOwnTapIsNobodyElses) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  for (int round = 0; round < 3; ++round) EXPECT_TRUE(accessibility.isProcessTrusted());
  stop(tap);
  EXPECT_TRUE(accessibility.isProcessTrusted());
  EXPECT_EQ(losses, 0);
  EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LinuxTrust, AnotherProgramsTapIsInTheWayUntilItEnds) {
  TestProcess program({.arguments = {TALMO_TAP_PROGRAM}});
  ASSERT_TRUE(waitUntil([&] { return program.output().find("ready") != std::string::npos; }))
      << program.output();
  EXPECT_FALSE(accessibility.isProcessTrusted());
  program.signal(SIGKILL);
  ASSERT_EQ(program.waitForExit(10s), -SIGKILL);
  EXPECT_TRUE(waitUntil([&] { return accessibility.isProcessTrusted(); }));
}

TEST_F(LinuxTrust, WhoeverHasTheWholeKeyboardForAWhileTakesNoTrustAway) {
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(rival.grabKeyboard());
  EXPECT_TRUE(accessibility.isProcessTrusted());
  desk.keyboard.tap("XF86AudioPlay");
  EXPECT_THAT(rival.pressed(), ElementsAre(keycode("XF86AudioPlay")));
  {
    TapThread tap(desk.dispatch, desk.eventTap);
    ASSERT_TRUE(isInstalled(tap));
    EXPECT_TRUE(accessibility.isProcessTrusted());
    stop(tap);
  }
  rival.ungrabKeyboard();
  EXPECT_TRUE(accessibility.isProcessTrusted());
}

TEST_F(LinuxTrust, AskingDisturbsNoTyping) {
  std::atomic<bool> isOver = false;
  std::atomic<int> questions = 0;
  std::atomic<bool> wereAllTrusted = true;
  std::thread asking([&] {
    while (!isOver) {
      wereAllTrusted = accessibility.isProcessTrusted() && wereAllTrusted;
      ++questions;
    }
  });
  std::vector<std::pair<std::string, std::uint8_t>> keys;
  for (const char* key : {"XF86AudioPlay", "a", "XF86AudioNext", "b", "XF86AudioPrev"}) {
    keys.emplace_back(key, keycode(key));
  }
  std::string typed;
  while (questions < 50) {
    for (const auto& [key, code] : keys) {
      desk.keyboard.tap(code);
      typed += std::string(typed.empty() ? "+" : " +") + key + " -" + key;
    }
  }
  isOver = true;
  asking.join();
  EXPECT_TRUE(desk.runUntil([&] { return desk.window->transcript().size() >= typed.size(); }));
  EXPECT_EQ(desk.window->transcript(), typed);
  EXPECT_TRUE(wereAllTrusted);
}

TEST_F(LinuxTrust, AKeyThatMovesOntoAnothersGrabEndsItUntilTheTapIsRemoved) {
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(rival.grab(spare));
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  EXPECT_TRUE(accessibility.isProcessTrusted());

  desk.keyboard.remap(spare, {"XF86AudioPlay"});
  ASSERT_TRUE(desk.runUntil([&] { return losses == 1; }));
  EXPECT_FALSE(accessibility.isProcessTrusted());
  EXPECT_THAT(errors(), ElementsAre(isGrabbed("XF86AudioPlay", spare)));
  stop(tap);
  EXPECT_FALSE(accessibility.isProcessTrusted());
  rival.ungrab(spare);
  EXPECT_TRUE(accessibility.isProcessTrusted());
  EXPECT_EQ(losses, 1);
}

TEST_F(LinuxTrust, AKeyThatMovesAwayFromAnothersGrabBringsItBack) {
  const std::uint8_t spare = desk.keyboard.unusedKeycode();
  RivalClient rival(desk.display.name());
  ASSERT_TRUE(rival.grab(spare));
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.remap(spare, {"XF86AudioPlay"});
  ASSERT_TRUE(desk.runUntil([&] { return losses == 1; }));
  desk.keyboard.remap(spare, {});
  EXPECT_TRUE(desk.runUntil([&] { return accessibility.isProcessTrusted(); }));
  stop(tap);
}

TEST_F(LinuxTrust, AConnectionThatTheServerClosesEndsItUntilTheTapIsRemoved) {
  std::atomic<int> displayLosses = 0;
  desk.eventTap.onDisplayLost([&] { ++displayLosses; });
  for (const std::size_t which : {0U, 1U}) {
    TapThread tap(desk.dispatch, desk.eventTap);
    ASSERT_TRUE(isInstalled(tap));
    losses = 0;
    // On its own thread, whose the port is.
    tap.perform([&tap, which] {
      const auto& port = dynamic_cast<const LinuxEventTapPort&>(tap.port());
      ::shutdown(port.descriptors()[which], SHUT_RDWR);
    });
    ASSERT_TRUE(desk.runUntil([&] { return losses == 1; }));
    // Told although the keys could be had again: the tap does not get them back.
    EXPECT_FALSE(accessibility.isProcessTrusted());
    EXPECT_FALSE(accessibility.isProcessTrusted());
    RivalClient rival(desk.display.name());
    EXPECT_TRUE(waitUntil([&] { return rival.grab(keycode("XF86AudioPlay")); }));
    stop(tap);
    EXPECT_FALSE(accessibility.isProcessTrusted());
    rival.ungrab(keycode("XF86AudioPlay"));
    EXPECT_TRUE(accessibility.isProcessTrusted());
    EXPECT_EQ(losses, 1);
  }
  EXPECT_EQ(displayLosses, 0);
  EXPECT_THAT(errors(), testing::Contains(HasSubstr("has closed the connection")).Times(2));

  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.keyboard.tap("XF86AudioNext");
  EXPECT_TRUE(desk.runUntil([&] { return tap.shownCount() == 2; }));
  stop(tap);
}

TEST_F(LinuxTrust, ATapThatIsRefusedIsToldOnceEvenWhenTheKeysAreFreeAgain) {
  {
    RivalClient rival(desk.display.name());
    ASSERT_TRUE(rival.grab(keycode("XF86AudioNext")));
    const TapThread tap(desk.dispatch, desk.eventTap);
    EXPECT_FALSE(isInstalled(tap));
    rival.ungrab(keycode("XF86AudioNext"));
  }
  EXPECT_EQ(losses, 1);
  EXPECT_FALSE(accessibility.isProcessTrusted());
  EXPECT_TRUE(accessibility.isProcessTrusted());
}

TEST_F(LinuxTrust, ASecondTapThatIsRefusedTakesNothingFromTheFirst) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  {
    const TapThread second(desk.dispatch, desk.eventTap);
    EXPECT_FALSE(isInstalled(second));
  }
  EXPECT_TRUE(accessibility.isProcessTrusted());
  stop(tap);
}

TEST_F(LinuxTrust, ALostServerEndsIt) {
  TapThread tap(desk.dispatch, desk.eventTap);
  ASSERT_TRUE(isInstalled(tap));
  desk.display.server().signal(SIGKILL);
  ASSERT_TRUE(desk.runUntil([&] { return losses == 1; }));
  EXPECT_FALSE(accessibility.isProcessTrusted());
  stop(tap);
  EXPECT_FALSE(accessibility.isProcessTrusted());
}

}  // namespace
}  // namespace talmo::test
