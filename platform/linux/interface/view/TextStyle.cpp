#include "platform/linux/interface/view/TextStyle.h"

namespace talmo {
namespace {

QFont sized(QFont font, double points, QFont::Weight weight) {
  constexpr double desktopPoints = 13;
  const double factor = points / desktopPoints;
  // A desktop may give its font in pixels.
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(qRound(font.pixelSize() * factor));
  }
  font.setWeight(weight);
  return font;
}

}  // namespace

QFont textFont(ViewRole role, ViewRole container, const QFont& desktopFont) {
  switch (container) {
    case ViewRole::chip:
      return sized(desktopFont, 11, QFont::DemiBold);
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
    case ViewRole::linkButton:
      return sized(desktopFont, 12, QFont::Medium);
    case ViewRole::primaryButton:
      return sized(desktopFont, 13, QFont::DemiBold);
    case ViewRole::ghostButton:
      return sized(desktopFont, 13, QFont::Medium);
    default:
      break;
  }
  switch (role) {
    case ViewRole::headline: {
      QFont font = sized(desktopFont, 32, QFont::Bold);
      font.setLetterSpacing(QFont::PercentageSpacing, 98);
      return font;
    }
    case ViewRole::title:
      return sized(desktopFont, container == ViewRole::card ? 15 : 13, QFont::DemiBold);
    case ViewRole::label:
      return sized(desktopFont, 13, QFont::Medium);
    case ViewRole::header: {
      QFont font = sized(desktopFont, 11, QFont::DemiBold);
      font.setLetterSpacing(QFont::PercentageSpacing, 108);
      return font;
    }
    case ViewRole::detail:
      return sized(desktopFont,
                   container == ViewRole::card || container == ViewRole::step ? 13 : 12,
                   QFont::Normal);
    default:
      return sized(desktopFont, container == ViewRole::step ? 13 : 12, QFont::Normal);
  }
}

QColor textColour(ViewRole role, ViewRole container, const Palette& palette) {
  switch (container) {
    case ViewRole::chip:
      return palette.chipText;
    case ViewRole::primaryButton:
    case ViewRole::prominentButton:
      return palette.prominentText;
    case ViewRole::ghostButton:
      return palette.secondaryText;
    case ViewRole::plainButton:
      return palette.primaryText;
    case ViewRole::linkButton:
      return palette.accent;
    default:
      break;
  }
  switch (role) {
    case ViewRole::headline:
    case ViewRole::title:
    case ViewRole::label:
      return palette.primaryText;
    case ViewRole::header:
      return palette.tertiaryText;
    default:
      return palette.secondaryText;
  }
}

}  // namespace talmo
