#include "tests/contract/EventMonitorsContract.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using EventType = InterfaceEvent::Type;

constexpr std::uint64_t mousePresses = 10;
constexpr std::uint64_t keyPresses = 1024;

constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t tab = 48;
constexpr std::uint16_t space = 49;
constexpr std::uint16_t keypadEnter = 76;
constexpr std::uint16_t downArrow = 125;
constexpr std::uint16_t upArrow = 126;

}  // namespace

EventMonitors::Token EventMonitorsContract::watch(Events& seen, std::uint64_t mask, bool passes) {
  return monitors().addLocalMonitor(mask, [&seen, passes](const InterfaceEvent& event) {
    seen.push_back(event);
    return passes;
  });
}

EventMonitors::Token EventMonitorsContract::watchElsewhere(Events& seen, std::uint64_t mask) {
  return monitors().addGlobalMonitor(
      mask, [&seen](const InterfaceEvent& event) { seen.push_back(event); });
}

TEST_P(EventMonitorsContract, EachKeyHasItsCodeAndWindow) {
  Events seen;
  watch(seen, keyPresses);
  const std::vector<std::uint16_t> keys{returnKey, tab, space, keypadEnter, downArrow, upArrow};
  for (const std::uint16_t key : keys) world().pressKey(key, 0);
  ASSERT_TRUE(runUntil([&] { return seen.size() >= keys.size(); }));
  ASSERT_THAT(seen, SizeIs(keys.size()));
  for (std::size_t index = 0; index < keys.size(); ++index) {
    EXPECT_EQ(seen[index],
              (InterfaceEvent{
                  .type = EventType::keyDown, .window = world().window(), .keyCode = keys[index]}));
  }
}

TEST_P(EventMonitorsContract, EachModifierIsTold) {
  Events seen;
  watch(seen, keyPresses);
  const std::vector<std::uint64_t> modifiers{InterfaceEvent::shift, InterfaceEvent::control,
                                             InterfaceEvent::option, InterfaceEvent::command};
  for (const std::uint64_t modifier : modifiers) world().pressKey(returnKey, modifier);
  ASSERT_TRUE(
      runUntil([&] { return std::ranges::count(seen, returnKey, &InterfaceEvent::keyCode) == 4; }));
  std::erase_if(seen, [](const InterfaceEvent& event) { return event.keyCode != returnKey; });
  for (std::size_t index = 0; index < 4; ++index) {
    EXPECT_EQ(seen[index].modifiers, modifiers[index]);
  }
}

TEST_P(EventMonitorsContract, ASwallowedKeyReachesNobodyElse) {
  Events first;
  Events second;
  const EventMonitors::Token token = watch(first, keyPresses, false);
  watch(second, keyPresses);
  world().pressKey(space, 0);
  ASSERT_TRUE(runUntil([&] { return first.size() == 1; }));
  monitors().removeMonitor(token);
  world().pressKey(returnKey, 0);
  ASSERT_TRUE(runUntil([&] { return !world().receivedKeys().empty(); }));
  EXPECT_THAT(world().receivedKeys(), ElementsAre(returnKey));
  ASSERT_THAT(second, SizeIs(1));
  EXPECT_EQ(second[0].keyCode, returnKey);
}

TEST_P(EventMonitorsContract, AClickIsSeenByThoseItConcerns) {
  Events local;
  Events global;
  watch(local, mousePresses);
  watchElsewhere(global, mousePresses);
  world().clickWindow();
  ASSERT_TRUE(runUntil([&] { return !local.empty(); }));
  ASSERT_THAT(local, SizeIs(1));
  EXPECT_EQ(local[0].type, EventType::leftMouseDown);
  EXPECT_EQ(local[0].window, world().window());
  world().clickElsewhere();
  ASSERT_TRUE(runUntil([&] { return !global.empty(); }));
  ASSERT_THAT(global, SizeIs(1));
  EXPECT_EQ(global[0].type, EventType::leftMouseDown);
  EXPECT_EQ(global[0].window, 0U);
  EXPECT_THAT(local, SizeIs(1));
}

TEST_P(EventMonitorsContract, AMonitorSeesWhatItsMaskHas) {
  Events clicks;
  Events keys;
  Events clicksElsewhere;
  watch(clicks, mousePresses);
  watch(keys, keyPresses);
  watchElsewhere(clicksElsewhere, keyPresses);
  world().clickElsewhere();
  world().clickWindow();
  world().pressKey(space, 0);
  ASSERT_TRUE(runUntil([&] { return !clicks.empty() && !keys.empty(); }));
  EXPECT_THAT(clicks, SizeIs(1));
  EXPECT_THAT(keys, SizeIs(1));
  EXPECT_THAT(clicksElsewhere, IsEmpty());
}

TEST_P(EventMonitorsContract, AMonitorMayEndItselfAndIsGoneThen) {
  int calls = 0;
  EventMonitors::Token token = 0;
  token = monitors().addLocalMonitor(keyPresses, [&](const InterfaceEvent&) {
    ++calls;
    monitors().removeMonitor(token);
    return true;
  });
  Events later;
  const EventMonitors::Token other = watch(later, keyPresses);
  EXPECT_NE(token, other);
  EXPECT_NE(token, 0U);
  world().pressKey(space, 0);
  world().pressKey(returnKey, 0);
  ASSERT_TRUE(runUntil([&] { return later.size() == 2; }));
  EXPECT_EQ(calls, 1);
  monitors().removeMonitor(0);
  monitors().removeMonitor(token);
}

}  // namespace talmo::test
