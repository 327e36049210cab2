#include <gtest/gtest.h>

#include "platform/macos/interface/view/EqualizerBar.h"
#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/SpokenText.h"
#include "platform/macos/interface/view/StackLook.h"
#include "platform/macos/interface/view/SymbolLook.h"
#include "platform/macos/interface/view/TextLook.h"

namespace talmo::test {
namespace {

using Weight = TextLook::Weight;

PartKey part(ViewKind kind, ViewRole role) {
  return {.identity = "part", .kind = kind, .role = role};
}

TEST(TextLook, WhatATextIsInDecidesBeforeItsRole) {
  EXPECT_EQ(TextLook::of(ViewRole::label, ViewRole::row),
            (TextLook{.points = 13, .weight = Weight::medium, .ink = Ink::primary}));
  EXPECT_EQ(TextLook::of(ViewRole::label, ViewRole::linkButton).ink, Ink::link);
  EXPECT_EQ(TextLook::of(ViewRole::label, ViewRole::primaryButton).ink, Ink::onAccent);
  EXPECT_EQ(TextLook::of(ViewRole::label, ViewRole::prominentButton).ink, Ink::onAccent);
}

TEST(TextLook, ACardIsWrittenLarger) {
  EXPECT_GT(TextLook::of(ViewRole::title, ViewRole::card).points,
            TextLook::of(ViewRole::title, ViewRole::offer).points);
  EXPECT_GT(TextLook::of(ViewRole::detail, ViewRole::card).points,
            TextLook::of(ViewRole::detail, ViewRole::footer).points);
}

TEST(TextLook, AHeadlineIsTheLargestAndWhatMattersLessIsFainter) {
  for (const ViewRole role :
       {ViewRole::title, ViewRole::label, ViewRole::body, ViewRole::detail, ViewRole::header}) {
    EXPECT_LT(TextLook::of(role, ViewRole::step).points,
              TextLook::of(ViewRole::headline, ViewRole::step).points);
  }
  EXPECT_EQ(TextLook::of(ViewRole::detail, ViewRole::row).ink, Ink::secondary);
  EXPECT_EQ(TextLook::of(ViewRole::header, ViewRole::section).ink, Ink::tertiary);
}

TEST(SymbolLook, OnlyASymbolInTheSteadOfAPictureHasATile) {
  EXPECT_TRUE(SymbolLook::of(ViewRole::artwork, ViewRole::card).isTile);
  EXPECT_TRUE(SymbolLook::of(ViewRole::icon, ViewRole::row).isTile);
  EXPECT_FALSE(SymbolLook::of(ViewRole::mark, ViewRole::row).isTile);
}

TEST(SymbolLook, EachSymbolHasRoomInItsPlace) {
  // A symbol of the system is up to about a quarter larger than the font that it goes with.
  for (const ViewRole role : {ViewRole::artwork, ViewRole::icon, ViewRole::symbol, ViewRole::mark,
                              ViewRole::warningSymbol, ViewRole::successSymbol}) {
    for (const ViewRole container : {ViewRole::card, ViewRole::headline, ViewRole::linkButton}) {
      const SymbolLook look = SymbolLook::of(role, container);
      EXPECT_GE(look.side, 1.2 * look.points);
    }
  }
}

TEST(SymbolLook, APictureAndItsSymbolTakeTheSamePlace) {
  for (const ViewRole role : {ViewRole::artwork, ViewRole::icon}) {
    EXPECT_EQ(pictureSideOf(role), SymbolLook::of(role, ViewRole::row).side);
  }
}

TEST(SymbolLook, ASymbolIsInkedAsTheTextBesideIt) {
  for (const ViewRole container : {ViewRole::linkButton, ViewRole::primaryButton}) {
    EXPECT_EQ(SymbolLook::of(ViewRole::symbol, container).ink,
              TextLook::of(ViewRole::label, container).ink);
  }
}

TEST(StackLook, LinesOfOneTextAndRowsAreCloseToEachOther) {
  const PartKey title = part(ViewKind::text, ViewRole::title);
  const PartKey detail = part(ViewKind::text, ViewRole::detail);
  const PartKey row = part(ViewKind::button, ViewRole::row);
  const PartKey chip = part(ViewKind::horizontal, ViewRole::chip);
  EXPECT_EQ(gapBetween(title, detail, ViewRole::group, ViewRole::card), Metrics::tight);
  EXPECT_EQ(gapBetween(row, row, ViewRole::section, ViewRole::section), Metrics::tight);
  EXPECT_EQ(gapBetween(detail, chip, ViewRole::group, ViewRole::card), Metrics::step);
  EXPECT_EQ(gapBetween(detail, chip, ViewRole::group, ViewRole::step), Metrics::wide);
  EXPECT_EQ(gapBetween(chip, chip, ViewRole::step, ViewRole::step), Metrics::roomy);
}

TEST(StackLook, AGroupHasRoomAroundItOnlyInAList) {
  EXPECT_EQ(insetsOf(ViewRole::group, ViewRole::card), Insets{});
  EXPECT_EQ(insetsOf(ViewRole::group, ViewRole::section).left,
            insetsOf(ViewRole::row, ViewRole::row).left);
}

TEST(StackLook, WhatHasAGroundKeepsItsContentFromItsEdges) {
  for (const ViewRole role :
       {ViewRole::glass, ViewRole::material, ViewRole::card, ViewRole::warning, ViewRole::offer,
        ViewRole::chip, ViewRole::primaryButton, ViewRole::plainButton}) {
    const Insets insets = insetsOf(role, role);
    EXPECT_GT(insets.left, 0);
    EXPECT_GT(insets.top, 0);
    EXPECT_GT(insets.right, 0);
    EXPECT_GT(insets.bottom, 0);
  }
}

TEST(StackLook, AnIconFitsIntoItsRow) {
  const Insets insets = insetsOf(ViewRole::row, ViewRole::row);
  EXPECT_LE(Metrics::icon + insets.top + insets.bottom, leastHeightOf(ViewRole::row));
}

TEST(EqualizerBar, ABarThatStandsStillIsBetweenItsEnds) {
  EXPECT_DOUBLE_EQ((EqualizerBar{.phase = 0}.stillHeight()), EqualizerBar::low);
  EXPECT_DOUBLE_EQ((EqualizerBar{.phase = 0.5}.stillHeight()), EqualizerBar::high);
  for (const EqualizerBar& bar : equalizerBars) {
    EXPECT_GE(bar.stillHeight(), EqualizerBar::low);
    EXPECT_LE(bar.stillHeight(), EqualizerBar::high);
  }
}

TEST(EqualizerBar, TheBarsStandBesideEachOther) {
  EXPECT_DOUBLE_EQ(EqualizerBar::leftEdge(0), 0);
  EXPECT_DOUBLE_EQ(EqualizerBar::leftEdge(2), 2 * (EqualizerBar::width + EqualizerBar::gap));
}

TEST(SpokenText, TheLabelIsSaidInsteadOfTheTexts) {
  const View text{.identity = "text", .kind = ViewKind::text, .text = "Written"};
  View view{.identity = "button", .kind = ViewKind::button, .children = {text}};
  EXPECT_EQ(spokenText(view), "Written");
  view.accessibilityLabel = "Said";
  EXPECT_EQ(spokenText(view), "Said");
}

TEST(SpokenText, AllTextsAreSaidInTheirOrderAndSymbolsAreNot) {
  const View symbol{.identity = "symbol", .kind = ViewKind::symbol, .text = "gearshape"};
  const View first{.identity = "first", .kind = ViewKind::text, .text = "First"};
  const View empty{.identity = "empty", .kind = ViewKind::text};
  const View second{.identity = "second", .kind = ViewKind::text, .text = "Second"};
  const View group{.identity = "group", .children = {empty, second}};
  const View view{
      .identity = "button", .kind = ViewKind::button, .children = {symbol, first, group}};
  EXPECT_EQ(spokenText(view), "First, Second");
  EXPECT_EQ(spokenText(symbol), "");
}

}  // namespace
}  // namespace talmo::test
