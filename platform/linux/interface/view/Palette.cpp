#include "platform/linux/interface/view/Palette.h"

namespace talmo {

const Palette& Palette::light() {
  static const Palette palette{
      .glass = QColor(247, 246, 251, 246),
      .glassLight = QColor(255, 255, 255, 230),
      .glassBorder = QColor(24, 18, 48, 44),
      .card = QColor(255, 255, 255, 170),
      .cardBorder = QColor(24, 18, 48, 16),
      .warning = QColor(255, 178, 36, 46),
      .warningBorder = QColor(196, 112, 0, 60),
      .chip = QColor(90, 70, 224, 28),
      .tile = QColor(90, 70, 224, 34),
      .hairline = QColor(24, 18, 48, 24),
      .primaryText = QColor(27, 24, 36),
      .secondaryText = QColor(84, 80, 98),
      .tertiaryText = QColor(92, 88, 107),
      .accent = QColor(84, 64, 218),
      .chipText = QColor(74, 54, 204),
      .tileSymbol = QColor(84, 64, 218),
      .warningSymbol = QColor(178, 88, 0),
      .hover = QColor(40, 26, 96, 16),
      .highlight = QColor(90, 70, 224, 34),
      .highlightRing = QColor(84, 64, 218, 220),
      .prominent = QColor(90, 70, 224),
      .prominentHover = QColor(78, 58, 210),
      .prominentText = QColor(255, 255, 255),
      .plain = QColor(40, 26, 96, 20),
      .plainHover = QColor(40, 26, 96, 34),
      .success = QColor(22, 122, 66),
      .toggleOff = QColor(24, 18, 48, 124),
      .toggleOn = QColor(90, 70, 224),
      .toggleKnob = QColor(255, 255, 255),
      .segment = QColor(24, 18, 48, 36),
      .scrollThumb = QColor(24, 18, 48, 96),
  };
  return palette;
}

const Palette& Palette::dark() {
  static const Palette palette{
      .glass = QColor(29, 27, 36, 246),
      .glassLight = QColor(255, 255, 255, 26),
      .glassBorder = QColor(255, 255, 255, 30),
      .card = QColor(255, 255, 255, 14),
      .cardBorder = QColor(255, 255, 255, 14),
      .warning = QColor(255, 178, 60, 30),
      .warningBorder = QColor(255, 178, 60, 56),
      .chip = QColor(166, 152, 255, 34),
      .tile = QColor(166, 152, 255, 40),
      .hairline = QColor(255, 255, 255, 24),
      .primaryText = QColor(245, 243, 251),
      .secondaryText = QColor(195, 191, 207),
      .tertiaryText = QColor(164, 160, 180),
      .accent = QColor(174, 162, 255),
      .chipText = QColor(205, 197, 255),
      .tileSymbol = QColor(190, 180, 255),
      .warningSymbol = QColor(255, 188, 82),
      .hover = QColor(255, 255, 255, 18),
      .highlight = QColor(166, 152, 255, 42),
      .highlightRing = QColor(174, 162, 255, 220),
      .prominent = QColor(104, 84, 232),
      .prominentHover = QColor(110, 92, 236),
      .prominentText = QColor(255, 255, 255),
      .plain = QColor(255, 255, 255, 24),
      .plainHover = QColor(255, 255, 255, 38),
      .success = QColor(112, 214, 146),
      .toggleOff = QColor(255, 255, 255, 96),
      .toggleOn = QColor(124, 106, 245),
      .toggleKnob = QColor(255, 255, 255),
      .segment = QColor(255, 255, 255, 44),
      .scrollThumb = QColor(255, 255, 255, 110),
  };
  return palette;
}

}  // namespace talmo
