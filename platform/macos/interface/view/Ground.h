#pragma once

namespace talmo {

/// What something stands on or is made of that is neither a text nor a symbol.
enum class Ground {
  card,
  cardBorder,
  warning,
  warningBorder,
  chip,
  /// Behind the symbol that stands for a picture that there is none of.
  tile,
  hairline,
  hover,
  highlight,
  highlightRing,
  prominent,
  prominentHover,
  plain,
  plainHover,
  /// A step that is not filled.
  segment,
  toggleOff,
  toggleKnob,
};

}  // namespace talmo
