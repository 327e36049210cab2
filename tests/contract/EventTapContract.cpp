#include "tests/contract/EventTapContract.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <gmock/gmock.h>

#include "tests/contract/TapThread.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Seen = EventTapWorld::Seen;
using Shown = TapThread::Shown;

constexpr std::int32_t playPause = 16;
constexpr std::int32_t next = 17;
constexpr std::int32_t previous = 18;
constexpr std::int32_t fast = 19;
constexpr std::int32_t rewind = 20;

/// What a tap is shown for a media key.
Shown event(std::int32_t code, bool isPress, bool isRepeat = false) {
  const std::int64_t state = isPress ? 0x0A : 0x0B;
  return {
      .type = 14,
      .content = SystemDefinedEvent{
          .subtype = 8, .data1 = (std::int64_t{code} << 16) | (state << 8) | (isRepeat ? 1 : 0)}};
}

std::int32_t codeOf(const Shown& shown) {
  return shown.content ? static_cast<std::int32_t>(shown.content->data1 >> 16) : 0;
}

TapVerdict passAll(const Shown&) {
  return TapVerdict::pass;
}

/// Consumes one key and passes the others.
TapThread::Decide consumeOnly(std::int32_t code) {
  return [code](const Shown& shown) {
    return codeOf(shown) == code ? TapVerdict::consume : TapVerdict::pass;
  };
}

}  // namespace

bool EventTapContract::tapReachesOthers(std::int32_t code) {
  const auto releases = [&] {
    const std::vector<Seen> seen = world().othersSaw();
    return std::count(seen.begin(), seen.end(), Seen{code, false});
  };
  const auto before = releases();
  world().press(code);
  world().release(code);
  return runUntil([&] { return releases() > before; });
}

TEST_P(EventTapContract, KeysReachOthersWhileThereIsNoTap) {
  ASSERT_TRUE(tapReachesOthers(playPause));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{playPause, true}, Seen{playPause, false}));
}

TEST_P(EventTapContract, PressAndReleaseArriveAsAuxiliaryKeyEvents) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  for (const std::int32_t code : {playPause, next, previous, fast, rewind}) {
    world().press(code);
    world().release(code);
  }
  EXPECT_TRUE(runUntil([&] { return tap.shownCount() == 10; }));
  EXPECT_THAT(tap.shown(),
              ElementsAre(event(playPause, true), event(playPause, false), event(next, true),
                          event(next, false), event(previous, true), event(previous, false),
                          event(fast, true), event(fast, false), event(rewind, true),
                          event(rewind, false)));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, HeldKeyArrivesAsOnePressThenRepeatsThenOneRelease) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().hold(next);
  ASSERT_TRUE(runUntil([&] { return tap.shownCount() >= 2; }));
  world().release(next);
  ASSERT_TRUE(runUntil([&] {
    const std::vector<Shown> shown = tap.shown();
    return shown.back() == event(next, false);
  }));
  std::vector<Shown> shown = tap.shown();
  EXPECT_EQ(shown.front(), event(next, true));
  for (std::size_t index = 1; index + 1 < shown.size(); ++index) {
    EXPECT_EQ(shown[index], event(next, true, true)) << "event " << index;
  }
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, NobodyElseSeesAConsumedKey) {
  TapThread tap(world().dispatch(), world().eventTap(), consumeOnly(playPause));
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().press(playPause);
  world().release(playPause);
  ASSERT_TRUE(tapReachesOthers(next));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{next, true}, Seen{next, false}));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, NobodyElseSeesAConsumedKeyThatRepeats) {
  TapThread tap(world().dispatch(), world().eventTap(), consumeOnly(next));
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().hold(next);
  ASSERT_TRUE(runUntil([&] { return tap.shownCount() >= 3; }));
  world().release(next);
  ASSERT_TRUE(tapReachesOthers(playPause));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{playPause, true}, Seen{playPause, false}));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, OthersSeePressAndReleaseOfAPassedKey) {
  TapThread tap(world().dispatch(), world().eventTap(), passAll);
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  ASSERT_TRUE(tapReachesOthers(playPause));
  ASSERT_TRUE(tapReachesOthers(playPause));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{playPause, true}, Seen{playPause, false},
                                               Seen{playPause, true}, Seen{playPause, false}));
  // The tap is asked about releases too, and no second press counts as a repeat of the first.
  EXPECT_THAT(tap.shown(), ElementsAre(event(playPause, true), event(playPause, false),
                                       event(playPause, true), event(playPause, false)));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, PassedKeyThatRepeatsArrivesAsOnePressAndRepeats) {
  TapThread tap(world().dispatch(), world().eventTap(), passAll);
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().hold(next);
  ASSERT_TRUE(runUntil([&] { return tap.shownCount() >= 2; }));
  world().release(next);
  ASSERT_TRUE(runUntil([&] {
    const std::vector<Seen> seen = world().othersSaw();
    return !seen.empty() && seen.back() == Seen{next, false};
  }));
  const std::vector<Shown> shown = tap.shown();
  EXPECT_EQ(shown.front(), event(next, true));
  EXPECT_EQ(shown.back(), event(next, false));
  for (std::size_t index = 1; index + 1 < shown.size(); ++index) {
    EXPECT_EQ(shown[index], event(next, true, true)) << "event " << index;
  }
  EXPECT_EQ(world().othersSaw().size(), shown.size());
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, EachEventOfAKeyIsDecidedByItself) {
  std::atomic<int> asked = 0;
  TapThread tap(world().dispatch(), world().eventTap(), [&asked](const Shown&) {
    return ++asked == 1 ? TapVerdict::consume : TapVerdict::pass;
  });
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().press(playPause);
  world().release(playPause);
  ASSERT_TRUE(tapReachesOthers(next));
  EXPECT_THAT(world().othersSaw(),
              ElementsAre(Seen{playPause, false}, Seen{next, true}, Seen{next, false}));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, TwoKeysDownAtOnceKeepTheirPressesAndReleases) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  world().press(playPause);
  world().press(next);
  world().release(playPause);
  world().release(next);
  EXPECT_TRUE(runUntil([&] { return tap.shownCount() == 4; }));
  EXPECT_THAT(tap.shown(), ElementsAre(event(playPause, true), event(next, true),
                                       event(playPause, false), event(next, false)));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
  // What was consumed stays so when the tap is gone.
  ASSERT_TRUE(tapReachesOthers(previous));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{previous, true}, Seen{previous, false}));
}

TEST_P(EventTapContract, RefusedTapIsNothing) {
  world().refuseTaps();
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.hasEnded(); }));
  EXPECT_TRUE(tap.isDecided());
  EXPECT_FALSE(tap.isInstalled());
}

TEST_P(EventTapContract, TapThatIsOffPassesEverythingUntilItIsOnAgain) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  tap.port().enable(false);
  ASSERT_TRUE(tapReachesOthers(playPause));
  tap.port().enable(true);
  world().press(next);
  world().release(next);
  EXPECT_TRUE(runUntil([&] { return tap.shownCount() == 2; }));
  EXPECT_THAT(tap.shown(), ElementsAre(event(next, true), event(next, false)));
  EXPECT_THAT(world().othersSaw(), ElementsAre(Seen{playPause, true}, Seen{playPause, false}));
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, RemovedTapIsSilentAndEventsPass) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  std::atomic<bool> isRemoved = false;
  tap.perform([&] {
    tap.port().invalidate();
    isRemoved = true;
  });
  ASSERT_TRUE(runUntil([&] { return isRemoved.load(); }));
  EXPECT_TRUE(tapReachesOthers(playPause));
  EXPECT_THAT(tap.shown(), IsEmpty());
  EXPECT_FALSE(tap.hasEnded()) << "the run loop ended without a stop";
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

TEST_P(EventTapContract, TapLetGoOfIsRemoved) {
  std::atomic<bool> isGone = false;
  std::atomic<bool> wasCreated = false;
  world().dispatch().startThread(
      "nl.brelm.talmo.contract-tap", QualityOfService::userInteractive, [&] {
        wasCreated = world().eventTap().create({.eventsOfInterest = std::uint64_t{1} << 14,
                                                .callback = [](TapEvent&, void*) {
                                                  return TapVerdict::consume;
                                                }}) != nullptr;
        isGone = true;
      });
  ASSERT_TRUE(runUntil([&] { return isGone.load(); }));
  EXPECT_TRUE(wasCreated);
  EXPECT_TRUE(tapReachesOthers(playPause));
}

TEST_P(EventTapContract, ASecondTapMayFollowTheFirst) {
  for (int round = 0; round < 3; ++round) {
    TapThread tap(world().dispatch(), world().eventTap());
    ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); })) << "round " << round;
    world().press(playPause);
    world().release(playPause);
    EXPECT_TRUE(runUntil([&] { return tap.shownCount() == 2; })) << "round " << round;
    tap.stop();
    ASSERT_TRUE(runUntil([&] { return tap.hasEnded(); }));
  }
  EXPECT_THAT(world().othersSaw(), IsEmpty());
}

TEST_P(EventTapContract, BlockRunsOnceOnTheRunLoopsThread) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  std::atomic<int> runs = 0;
  std::atomic<bool> wasMainThread = true;
  std::atomic<bool> wasOwnRunLoop = false;
  const std::shared_ptr<RunLoop> ours = world().eventTap().currentRunLoop();
  tap.perform([&] {
    ++runs;
    wasMainThread = world().dispatch().isMainThread();
    wasOwnRunLoop = world().eventTap().currentRunLoop() != ours;
  });
  ASSERT_TRUE(runUntil([&] { return runs > 0; }));
  EXPECT_FALSE(wasMainThread);
  EXPECT_TRUE(wasOwnRunLoop) << "two threads have one run loop";
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
  EXPECT_EQ(runs, 1);
}

TEST_P(EventTapContract, BlocksRunInTheOrderInWhichTheyCame) {
  TapThread tap(world().dispatch(), world().eventTap());
  ASSERT_TRUE(runUntil([&] { return tap.isInstalled(); }));
  std::atomic<int> last = 0;
  std::atomic<bool> inOrder = true;
  for (int block = 1; block <= 50; ++block) {
    tap.perform([&, block] { inOrder = inOrder && last.exchange(block) == block - 1; });
  }
  EXPECT_TRUE(runUntil([&] { return last == 50; }));
  EXPECT_TRUE(inOrder);
  tap.stop();
  EXPECT_TRUE(runUntil([&] { return tap.hasEnded(); }));
}

}  // namespace talmo::test
