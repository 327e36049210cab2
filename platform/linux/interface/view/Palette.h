#pragma once

#include <QColor>

namespace talmo {

/// The colours of a look. Translucent ones lie on those that are drawn below them.
struct Palette {
  /// How much of its colour a picture throws on the card it is in.
  static constexpr float tintAlpha = 0.08F;

  // Grounds, from the window's upwards.
  QColor glass;
  /// The light along the upper edge, and the hairline around it.
  QColor glassLight;
  QColor glassBorder;
  QColor card;
  QColor cardBorder;
  QColor warning;
  QColor warningBorder;
  QColor chip;
  /// Behind the symbol that stands for a missing artwork.
  QColor tile;
  QColor hairline;

  QColor primaryText;
  QColor secondaryText;
  QColor tertiaryText;
  /// Links, marks, what moves.
  QColor accent;
  QColor chipText;
  QColor tileSymbol;
  QColor warningSymbol;

  // Grounds of what can be pressed.
  QColor hover;
  QColor highlight;
  QColor highlightRing;
  QColor prominent;
  QColor prominentHover;
  QColor prominentText;
  QColor plain;
  QColor plainHover;

  /// Of what has come true.
  QColor success;
  QColor toggleOff;
  QColor toggleOn;
  QColor toggleKnob;
  /// One that is not filled.
  QColor segment;

  QColor scrollThumb;

  static const Palette& light();
  static const Palette& dark();
};

}  // namespace talmo
