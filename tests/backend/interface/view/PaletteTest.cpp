#include <algorithm>
#include <cmath>
#include <QColor>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/interface/view/Palette.h"

namespace talmo::test {
namespace {

// WCAG 2.1, success criteria 1.4.3 and 1.4.11.
constexpr double forText = 4.5;
constexpr double forSymbols = 3.0;

/// WCAG 2.1: relative luminance.
double luminance(const QColor& colour) {
  const auto linear = [](float value) {
    const double channel = value;
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

/// WCAG 2.1: contrast ratio.
double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// What the eye sees of `top` over an opaque colour.
QColor over(const QColor& top, const QColor& below) {
  const float alpha = top.alphaF();
  const auto blend = [alpha](float upper, float lower) {
    return alpha * upper + (1 - alpha) * lower;
  };
  return QColor::fromRgbF(blend(top.redF(), below.redF()), blend(top.greenF(), below.greenF()),
                          blend(top.blueF(), below.blueF()));
}

struct Ground {
  std::string name;
  QColor colour;
};

/// Each ground that is made by laying `layer` on one of `below`.
std::vector<Ground> laid(const std::string& name, const QColor& layer,
                         const std::vector<Ground>& below) {
  std::vector<Ground> grounds;
  for (const Ground& ground : below) {
    grounds.push_back({name + " on " + ground.name, over(layer, ground.colour)});
  }
  return grounds;
}

/// The lights that pictures of all hues throw on a card, and none.
std::vector<Ground> tinted(const std::vector<Ground>& cards) {
  std::vector<Ground> grounds = cards;
  for (int hue = 0; hue < 360; hue += 15) {
    QColor tint = QColor::fromHsl(hue, 191, 128);
    tint.setAlphaF(Palette::tintAlpha);
    const auto lit = laid("tint " + std::to_string(hue), tint, cards);
    grounds.insert(grounds.end(), lit.begin(), lit.end());
  }
  return grounds;
}

std::vector<Ground> operator+(std::vector<Ground> one, const std::vector<Ground>& other) {
  one.insert(one.end(), other.begin(), other.end());
  return one;
}

/// The grounds that there are, over a window that is white or black.
struct Grounds {
  explicit Grounds(const Palette& palette)
      : glass(laid("glass", palette.glass, {{"white", Qt::white}, {"black", Qt::black}})),
        offer(laid("card", palette.card, glass)),
        card(tinted(offer)),
        warning(laid("warning", palette.warning, glass)),
        chip(laid("chip", palette.chip, card)),
        row(glass + laid("hover", palette.hover, glass) +
            laid("highlight", palette.highlight, glass + laid("hover", palette.hover, glass))),
        tile(laid("tile", palette.tile, card + row)),
        plain(laid("plain", palette.plain, offer + warning) +
              laid("plain hover", palette.plainHover, offer + warning)),
        prominent{{"prominent", palette.prominent}, {"prominent hover", palette.prominentHover}} {}

  std::vector<Ground> glass;
  std::vector<Ground> offer;
  std::vector<Ground> card;
  std::vector<Ground> warning;
  std::vector<Ground> chip;
  std::vector<Ground> row;
  std::vector<Ground> tile;
  std::vector<Ground> plain;
  std::vector<Ground> prominent;
};

class PaletteTest : public testing::TestWithParam<const Palette*> {
 protected:
  static void expectContrast(const std::string& name, const QColor& colour,
                             const std::vector<Ground>& grounds, double least) {
    ASSERT_FALSE(grounds.empty());
    for (const Ground& ground : grounds) {
      EXPECT_GE(contrast(over(colour, ground.colour), ground.colour), least)
          << name << " (" << colour.name().toStdString() << ") over " << ground.name << " ("
          << ground.colour.name().toStdString() << ")";
    }
  }

  const Palette& palette_ = *GetParam();
  const Grounds grounds_{palette_};
};

TEST_P(PaletteTest, MakesEveryTextReadable) {
  expectContrast("primary", palette_.primaryText, grounds_.row, forText);
  expectContrast("primary", palette_.primaryText, grounds_.card, forText);
  expectContrast("primary", palette_.primaryText, grounds_.warning, forText);
  expectContrast("primary", palette_.primaryText, grounds_.plain, forText);
  expectContrast("secondary", palette_.secondaryText, grounds_.row, forText);
  expectContrast("secondary", palette_.secondaryText, grounds_.card, forText);
  expectContrast("secondary", palette_.secondaryText, grounds_.warning, forText);
  expectContrast("tertiary", palette_.tertiaryText, grounds_.glass, forText);
  expectContrast("chip", palette_.chipText, grounds_.chip, forText);
  expectContrast("link", palette_.accent, grounds_.warning, forText);
  expectContrast("link", palette_.accent, grounds_.offer, forText);
  expectContrast("prominent", palette_.prominentText, grounds_.prominent, forText);
}

TEST_P(PaletteTest, MakesEverySymbolAndMarkVisible) {
  expectContrast("mark", palette_.accent, grounds_.row, forSymbols);
  expectContrast("highlight's ring", palette_.highlightRing, grounds_.glass, forSymbols);
  expectContrast("symbol", palette_.secondaryText, grounds_.row, forSymbols);
  expectContrast("warning symbol", palette_.warningSymbol, grounds_.warning, forSymbols);
  expectContrast("success", palette_.success, grounds_.glass, forSymbols);
  expectContrast("filled segment", palette_.accent, grounds_.glass, forSymbols);
  expectContrast("switch that is off", palette_.toggleOff, grounds_.offer, forSymbols);
  expectContrast("switch that is on", palette_.toggleOn, grounds_.offer, forSymbols);
  expectContrast("knob", palette_.toggleKnob,
                 laid("off", palette_.toggleOff, grounds_.offer) +
                     laid("on", palette_.toggleOn, grounds_.offer),
                 forSymbols);
  expectContrast("tile's symbol", palette_.tileSymbol, grounds_.tile, forSymbols);
}

TEST_P(PaletteTest, ShowsTheHighlightOtherwiseThanHovering) {
  const QColor ground = grounds_.glass.front().colour;
  const QColor hovered = over(palette_.hover, ground);
  const QColor highlighted = over(palette_.highlight, ground);
  EXPECT_NE(hovered, highlighted);
  EXPECT_GE(contrast(over(palette_.highlightRing, ground), hovered), forSymbols);
}

INSTANTIATE_TEST_SUITE_P(OfBothLooks, PaletteTest,
                         testing::Values(&Palette::light(), &Palette::dark()),
                         [](const auto& look) {
                           return look.param == &Palette::light() ? "Light" : "Dark";
                         });

}  // namespace
}  // namespace talmo::test
