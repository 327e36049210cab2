#include "tests/component/MediaKeyTapTest.h"

#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include "keys/MediaKeyTap.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Event = SimulatedEventTap::Event;

class Delegate : public MediaKeyTapDelegate {
 public:
  bool mediaKeyTap(MediaKeyTap&, MediaKey key, bool isKeyDown, bool isRepeat) override {
    const bool isOnMainThread = platform().dispatch().isMainThread();
    const MutexLock lock(mutex_);
    wasAskedOnMainThread_ = wasAskedOnMainThread_ || isOnMainThread;
    asked_.push_back({.key = key, .isKeyDown = isKeyDown, .isRepeat = isRepeat});
    return consumes_;
  }

  void setConsumes(bool consumes) {
    const MutexLock lock(mutex_);
    consumes_ = consumes;
  }
  std::vector<DecodedMediaKey> asked() {
    const MutexLock lock(mutex_);
    return asked_;
  }
  bool wasAskedOnMainThread() {
    const MutexLock lock(mutex_);
    return wasAskedOnMainThread_;
  }

 private:
  Mutex mutex_;
  std::vector<DecodedMediaKey> asked_ TALMO_GUARDED_BY(mutex_);
  bool consumes_ TALMO_GUARDED_BY(mutex_) = true;
  bool wasAskedOnMainThread_ TALMO_GUARDED_BY(mutex_) = false;
};

Event mediaKeyEvent(std::int64_t data1) {
  return {.content = SystemDefinedEvent{.subtype = 8, .data1 = data1}};
}

TEST_P(MediaKeyTapTest, AsksForOneTapOfSystemDefinedEventsAtTheHeadOfTheSession) {
  const auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());

  const std::vector<EventTapParameters> requests = machine().eventTap().requests();
  ASSERT_EQ(requests.size(), 1U);
  EXPECT_EQ(requests[0].location, 1U);
  EXPECT_EQ(requests[0].placement, 0U);
  EXPECT_EQ(requests[0].options, 0U);
  EXPECT_EQ(requests[0].eventsOfInterest, 0x4000U);
  EXPECT_EQ(requests[0].context, tap.get());
}

TEST_P(MediaKeyTapTest, StartOfARunningTapReturnsTrueAndMakesNoSecondTap) {
  const auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());
  EXPECT_TRUE(tap->isRunning());

  EXPECT_TRUE(tap->start());

  EXPECT_EQ(machine().eventTap().requests().size(), 1U);
  EXPECT_TRUE(tap->isRunning());
}

TEST_P(MediaKeyTapTest, StartWithoutPermissionFailsAndMayBeRepeatedLater) {
  const auto tap = MediaKeyTap::make();
  machine().eventTap().setTrusted(false);

  EXPECT_FALSE(tap->start());
  EXPECT_FALSE(tap->isRunning());
  EXPECT_FALSE(tap->start());

  machine().eventTap().setTrusted(true);
  EXPECT_TRUE(tap->start());
  EXPECT_TRUE(tap->isRunning());
}

TEST_P(MediaKeyTapTest, OffersPressRepeatAndReleaseToItsDelegateOnTheTapThread) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);
  ASSERT_TRUE(tap->start());

  machine().eventTap().postMediaKey(17, true);
  machine().eventTap().postMediaKey(17, true, true);
  machine().eventTap().postMediaKey(17, false);

  ASSERT_TRUE(runUntil([&] { return delegate->asked().size() == 3; }));
  EXPECT_THAT(delegate->asked(), ElementsAre(DecodedMediaKey{MediaKey::next, true, false},
                                             DecodedMediaKey{MediaKey::next, true, true},
                                             DecodedMediaKey{MediaKey::next, false, false}));
  EXPECT_FALSE(delegate->wasAskedOnMainThread());
}

TEST_P(MediaKeyTapTest, ConsumesOrPassesOnItsDelegatesAnswer) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);
  ASSERT_TRUE(tap->start());

  machine().eventTap().postMediaKey(16, true);
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().consumed().size() == 1; }));
  EXPECT_THAT(machine().eventTap().passed(), IsEmpty());

  delegate->setConsumes(false);
  machine().eventTap().postMediaKey(16, false);
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == 1; }));
  EXPECT_EQ(machine().eventTap().passed().at(0), mediaKeyEvent(0x00100B00));
}

TEST_P(MediaKeyTapTest, PassesEveryOtherAuxiliaryKeyAndEventWithoutAsking) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);
  ASSERT_TRUE(tap->start());

  const std::vector<Event> others{
      mediaKeyEvent(0x00000A00),  // volume up
      mediaKeyEvent(0x00010A00),  // volume down
      mediaKeyEvent(0x00030A00),  // brightness down
      mediaKeyEvent(0x000F0A00),
      mediaKeyEvent(0x00150A00),
      {.content = SystemDefinedEvent{.subtype = 7, .data1 = 0x00100A00}},
      {.content = std::nullopt},
  };
  for (const Event& event : others) machine().eventTap().post(event);

  ASSERT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == others.size(); }));
  EXPECT_EQ(machine().eventTap().passed(), others);
  EXPECT_THAT(delegate->asked(), IsEmpty());
}

TEST_P(MediaKeyTapTest, PassesEverythingWithoutADelegateAndOnceItIsGone) {
  auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());
  machine().eventTap().postMediaKey(16, true);
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == 1; }));

  tap->setDelegate(delegate);
  delegate.reset();
  machine().eventTap().postMediaKey(16, false);

  EXPECT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == 2; }));
  EXPECT_THAT(machine().eventTap().consumed(), IsEmpty());
}

TEST_P(MediaKeyTapTest, SwitchesATapThatTheSystemDisabledOnAgain) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);
  ASSERT_TRUE(tap->start());

  for (const std::uint32_t notice :
       {SimulatedEventTap::disabledByTimeout, SimulatedEventTap::disabledByUserInput}) {
    machine().eventTap().disableTap(notice);
    EXPECT_TRUE(runUntil([&] { return machine().eventTap().enabledTaps() == 1; }));
  }

  machine().eventTap().postMediaKey(16, true);
  EXPECT_TRUE(runUntil([&] { return machine().eventTap().consumed().size() == 1; }));
}

TEST_P(MediaKeyTapTest, StopLetsTheKeysGoAndStartTakesThemAgain) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);
  ASSERT_TRUE(tap->start());

  tap->stop();
  EXPECT_FALSE(tap->isRunning());
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().enabledTaps() == 0; }));
  machine().eventTap().postMediaKey(16, true);
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == 1; }));
  EXPECT_THAT(delegate->asked(), IsEmpty());

  EXPECT_TRUE(tap->start());
  machine().eventTap().postMediaKey(16, true);
  EXPECT_TRUE(runUntil([&] { return machine().eventTap().consumed().size() == 1; }));
}

TEST_P(MediaKeyTapTest, StartsAndStopsInQuickSuccession) {
  const auto delegate = std::make_shared<Delegate>();
  const auto tap = MediaKeyTap::make();
  tap->setDelegate(delegate);

  for (int round = 0; round < 20; ++round) {
    ASSERT_TRUE(tap->start());
    EXPECT_EQ(machine().eventTap().enabledTaps(), 1);
    tap->stop();
    tap->stop();
  }
  ASSERT_TRUE(tap->start());
  machine().eventTap().postMediaKey(16, true);
  EXPECT_TRUE(runUntil([&] { return machine().eventTap().consumed().size() == 1; }));
}

TEST_P(MediaKeyTapTest, ADroppedTapLeavesNoTapBehind) {
  auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());

  tap.reset();

  EXPECT_EQ(machine().eventTap().enabledTaps(), 0);
  machine().eventTap().postMediaKey(16, true);
  EXPECT_TRUE(runUntil([&] { return machine().eventTap().passed().size() == 1; }));
}

TEST_P(MediaKeyTapTest, ADisabledNoticeAfterStopDoesNothing) {
  const auto tap = MediaKeyTap::make();
  ASSERT_TRUE(tap->start());
  tap->stop();
  ASSERT_TRUE(runUntil([&] { return machine().eventTap().enabledTaps() == 0; }));

  class Notice : public TapEvent {
   public:
    std::uint32_t type() const override { return SimulatedEventTap::disabledByTimeout; }
    std::optional<SystemDefinedEvent> systemDefined() const override { return std::nullopt; }
  } notice;

  EXPECT_EQ(tap->handle(notice), TapVerdict::pass);
  EXPECT_EQ(machine().eventTap().enabledTaps(), 0);
}

TEST_P(MediaKeyTapTest, ACallbackWithoutAContextPasses) {
  class Press : public TapEvent {
   public:
    std::uint32_t type() const override { return 14; }
    std::optional<SystemDefinedEvent> systemDefined() const override {
      return SystemDefinedEvent{.subtype = 8, .data1 = 0x00100A00};
    }
  } press;
  EXPECT_EQ(MediaKeyTap::callback(press, nullptr), TapVerdict::pass);
}

}  // namespace
}  // namespace talmo::test
