#include "tests/contract/PanelsContract.h"

#include <string>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

View lines(int count) {
  View view;
  view.identity = "panel";
  view.role = ViewRole::glass;
  for (int line = 0; line < count; ++line) {
    View text;
    text.identity = "line" + std::to_string(line);
    text.kind = ViewKind::text;
    text.role = ViewRole::body;
    text.text = "Line";
    view.children.push_back(text);
  }
  return view;
}

constexpr Rect place{.x = 100, .y = 100, .width = 320, .height = 200};

}  // namespace

PanelsContract::PanelsContract() : panel_(world_->panels().makePanel()) {
  panel_->setOnSizeChange([this](Size size) { sizes_.push_back(size); });
  panel_->setOnCancel([this] { ++cancels_; });
  panel_->setOnResignKey([this] { ++resignations_; });
}

PanelsContract::~PanelsContract() = default;

void PanelsContract::showLines(int count) {
  panel_->setContent(lines(count));
  panel_->setFrame(place, false);
}

TEST_P(PanelsContract, ANewPanelIsHidden) {
  EXPECT_FALSE(panel().isVisible());
  showLines(3);
  EXPECT_FALSE(panel().isVisible());
}

TEST_P(PanelsContract, APanelComesAndGoesAsOftenAsItIsTold) {
  showLines(3);
  for (int time = 0; time < 2; ++time) {
    panel().makeKeyAndOrderFront();
    EXPECT_TRUE(runUntil([&] { return panel().isVisible(); }));
    panel().orderOut();
    EXPECT_TRUE(runUntil([&] { return !panel().isVisible(); }));
  }
}

TEST_P(PanelsContract, AnotherIdealSizeIsToldBeforeTheContentIsIn) {
  panel().setContent(lines(3));
  ASSERT_THAT(sizes(), SizeIs(1));
  EXPECT_GT(sizes()[0].width, 0);
  EXPECT_GT(sizes()[0].height, 0);
  panel().setContent(lines(3));
  EXPECT_THAT(sizes(), SizeIs(1)) << "the same again";
  panel().setContent(lines(6));
  ASSERT_THAT(sizes(), SizeIs(2));
  EXPECT_GT(sizes()[1].height, sizes()[0].height);
}

TEST_P(PanelsContract, APanelIsWhereItWasPut) {
  showLines(3);
  EXPECT_EQ(panel().frame(), place);
  panel().makeKeyAndOrderFront();
  ASSERT_TRUE(runUntil([&] { return panel().isVisible(); }));
  const Rect other{.x = 150, .y = 50, .width = 320, .height = 250};
  panel().setFrame(other, false);
  EXPECT_TRUE(runUntil([&] { return panel().frame() == other; }));
  const Rect last{.x = 150, .y = 100, .width = 320, .height = 200};
  panel().setFrame(last, true);
  EXPECT_TRUE(runUntil([&] { return panel().frame() == last; }));
}

TEST_P(PanelsContract, EscapeCancels) {
  showLines(3);
  panel().makeKeyAndOrderFront();
  ASSERT_TRUE(runUntil([&] { return panel().isVisible(); }));
  world().pressEscape();
  EXPECT_TRUE(runUntil([&] { return cancels() == 1; }));
  EXPECT_TRUE(panel().isVisible()) << "it is its owner who closes it";
}

TEST_P(PanelsContract, APanelThatLosesTheKeysSaysSo) {
  showLines(3);
  panel().makeKeyAndOrderFront();
  ASSERT_TRUE(runUntil([&] { return panel().isVisible(); }));
  EXPECT_EQ(resignations(), 0);
  world().takeKeysAway();
  EXPECT_TRUE(runUntil([&] { return resignations() == 1; }));
}

TEST_P(PanelsContract, EveryPanelIsAWindowOfItsOwn) {
  const std::unique_ptr<Panel> other = world().panels().makePanel();
  EXPECT_NE(panel().window(), 0U);
  EXPECT_NE(other->window(), 0U);
  EXPECT_NE(panel().window(), other->window());
  EXPECT_THAT(sizes(), IsEmpty());
}

}  // namespace talmo::test
