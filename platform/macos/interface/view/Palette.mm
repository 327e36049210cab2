#include "platform/macos/interface/view/Palette.h"

namespace talmo {
namespace {

// How much of its colour a ground shows.
constexpr CGFloat faint = 0.14;
constexpr CGFloat edge = 0.3;
constexpr CGFloat highlighted = 0.2;

}  // namespace

NSColor* colourOf(Ink ink) {
  switch (ink) {
    case Ink::primary:
      return [NSColor labelColor];
    case Ink::secondary:
      return [NSColor secondaryLabelColor];
    case Ink::tertiary:
      return [NSColor tertiaryLabelColor];
    case Ink::link:
      return [NSColor linkColor];
    case Ink::accent:
      return [NSColor controlAccentColor];
    case Ink::onAccent:
      return [NSColor alternateSelectedControlTextColor];
    case Ink::warning:
      return [NSColor systemOrangeColor];
    case Ink::success:
      return [NSColor systemGreenColor];
  }
}

NSColor* colourOf(Ground ground) {
  switch (ground) {
    case Ground::card:
    case Ground::hover:
      return [NSColor quaternarySystemFillColor];
    case Ground::cardBorder:
    case Ground::hairline:
      return [NSColor separatorColor];
    case Ground::warning:
      return [[NSColor systemOrangeColor] colorWithAlphaComponent:faint];
    case Ground::warningBorder:
      return [[NSColor systemOrangeColor] colorWithAlphaComponent:edge];
    case Ground::chip:
    case Ground::plain:
    case Ground::segment:
      return [NSColor tertiarySystemFillColor];
    case Ground::tile:
      return [[NSColor controlAccentColor] colorWithAlphaComponent:faint];
    case Ground::highlight:
      return [[NSColor controlAccentColor] colorWithAlphaComponent:highlighted];
    case Ground::highlightRing:
    case Ground::prominent:
      return [NSColor controlAccentColor];
    case Ground::prominentHover:
      return [[NSColor controlAccentColor] colorWithSystemEffect:NSColorSystemEffectRollover];
    case Ground::plainHover:
      return [NSColor secondarySystemFillColor];
    case Ground::toggleOff:
      return [NSColor systemFillColor];
    case Ground::toggleKnob:
      return [NSColor whiteColor];
  }
}

}  // namespace talmo
