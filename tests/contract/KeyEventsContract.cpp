#include "tests/contract/KeyEventsContract.h"

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint16_t space = 49;
constexpr std::uint16_t rightArrow = 124;
constexpr std::uint16_t leftArrow = 123;
constexpr std::uint16_t letterN = 45;
constexpr std::uint16_t letterP = 35;
constexpr std::uint16_t letterK = 40;
constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t control = 0x40000;

}  // namespace

void KeyEventsContract::postStroke(std::uint16_t keyCode, std::uint64_t flags,
                                   ProcessIdentifier process) {
  for (const bool isKeyDown : {true, false}) {
    world().keyEvents().post({.keyCode = keyCode, .isKeyDown = isKeyDown, .flags = flags}, process);
  }
}

TEST_P(KeyEventsContract, PressAndReleaseArriveWithTheirFlags) {
  const ProcessIdentifier process = world().startApplication();
  postStroke(space, 0, process);
  postStroke(rightArrow, control, process);
  postStroke(letterN, shift, process);
  ASSERT_TRUE(runUntil([&] { return world().received(process).size() >= 6; }));
  EXPECT_THAT(
      world().received(process),
      ElementsAre(KeyboardEvent{space, true, 0}, KeyboardEvent{space, false, 0},
                  KeyboardEvent{rightArrow, true, control},
                  KeyboardEvent{rightArrow, false, control}, KeyboardEvent{letterN, true, shift},
                  KeyboardEvent{letterN, false, shift}));
}

TEST_P(KeyEventsContract, EveryKeyOfThePlayersStrokesArrives) {
  const ProcessIdentifier process = world().startApplication();
  const std::vector<std::uint16_t> keys{space, rightArrow, leftArrow, letterN, letterP, letterK};
  std::vector<KeyboardEvent> expected;
  for (const std::uint16_t key : keys) {
    postStroke(key, 0, process);
    expected.push_back({key, true, 0});
    expected.push_back({key, false, 0});
  }
  ASSERT_TRUE(runUntil([&] { return world().received(process).size() >= expected.size(); }));
  EXPECT_EQ(world().received(process), expected);
}

TEST_P(KeyEventsContract, NoOtherProcessGetsThem) {
  const ProcessIdentifier front = world().startApplication();
  const ProcessIdentifier behind = world().startApplication();
  world().bringForward(front);
  postStroke(space, 0, behind);
  postStroke(letterK, 0, front);
  ASSERT_TRUE(runUntil([&] { return world().received(front).size() >= 2; }));
  ASSERT_TRUE(runUntil([&] { return world().received(behind).size() >= 2; }));
  EXPECT_THAT(world().received(behind),
              ElementsAre(KeyboardEvent{space, true, 0}, KeyboardEvent{space, false, 0}));
  EXPECT_THAT(world().received(front),
              ElementsAre(KeyboardEvent{letterK, true, 0}, KeyboardEvent{letterK, false, 0}));
}

TEST_P(KeyEventsContract, ProcessThatTakesNoneIsSkipped) {
  const ProcessIdentifier application = world().startApplication();
  const ProcessIdentifier windowless = world().startProcessWithoutWindows();
  world().bringForward(application);
  postStroke(space, 0, windowless);
  postStroke(letterN, 0, application);
  ASSERT_TRUE(runUntil([&] { return world().received(application).size() >= 2; }));
  EXPECT_THAT(world().received(application),
              ElementsAre(KeyboardEvent{letterN, true, 0}, KeyboardEvent{letterN, false, 0}));
  EXPECT_THAT(world().received(windowless), IsEmpty());
}

}  // namespace talmo::test
