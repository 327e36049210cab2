#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/interface/view/LinePlan.h"

namespace talmo::test {
namespace {

PartKey part(ViewKind kind, ViewRole role = ViewRole::group) {
  return {.identity = "part", .kind = kind, .role = role};
}

LinePlan planOf(const std::vector<PartKey>& parts, ViewRole role = ViewRole::group) {
  return LinePlan::of(parts, role);
}

TEST(LinePlan, TheFirstTextTakesTheRoom) {
  EXPECT_EQ(planOf({part(ViewKind::symbol), part(ViewKind::text), part(ViewKind::text)}),
            (LinePlan{.wide = 1}));
}

TEST(LinePlan, ATextComesBeforeAColumnThatIsFurtherAhead) {
  EXPECT_EQ(planOf({part(ViewKind::vertical), part(ViewKind::text)}), (LinePlan{.wide = 1}));
}

TEST(LinePlan, WithoutATextTheFirstColumnTakesTheRoom) {
  EXPECT_EQ(planOf({part(ViewKind::picture), part(ViewKind::vertical), part(ViewKind::equalizer)}),
            (LinePlan{.wide = 1}));
}

TEST(LinePlan, WhereNothingTakesItTheRoomIsAtTheEnd) {
  EXPECT_EQ(planOf({part(ViewKind::segment), part(ViewKind::segment)}),
            (LinePlan{.roomBefore = 2}));
  EXPECT_EQ(planOf({}), (LinePlan{.roomBefore = 0}));
}

TEST(LinePlan, TheLastButtonOfATrayStandsApart) {
  EXPECT_EQ(planOf({part(ViewKind::button), part(ViewKind::button)}, ViewRole::tray),
            (LinePlan{.roomBefore = 1}));
  EXPECT_EQ(planOf({part(ViewKind::button)}, ViewRole::tray), (LinePlan{.roomBefore = 0}));
  EXPECT_EQ(planOf({}, ViewRole::tray), (LinePlan{.roomBefore = 0}));
}

TEST(LinePlan, TextsStacksAndRowsFillAColumn) {
  EXPECT_FALSE(hasOwnWidth(part(ViewKind::text, ViewRole::body)));
  EXPECT_FALSE(hasOwnWidth(part(ViewKind::vertical)));
  EXPECT_FALSE(hasOwnWidth(part(ViewKind::horizontal, ViewRole::card)));
  EXPECT_FALSE(hasOwnWidth(part(ViewKind::button, ViewRole::row)));
}

TEST(LinePlan, ChipsButtonsAndPicturesAreAsWideAsTheyHaveToBe) {
  EXPECT_TRUE(hasOwnWidth(part(ViewKind::horizontal, ViewRole::chip)));
  EXPECT_TRUE(hasOwnWidth(part(ViewKind::button, ViewRole::linkButton)));
  EXPECT_TRUE(hasOwnWidth(part(ViewKind::picture, ViewRole::artwork)));
}

}  // namespace
}  // namespace talmo::test
