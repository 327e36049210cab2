#include "platform/macos/interface/view/SymbolLook.h"

#include "platform/macos/interface/view/Metrics.h"

namespace talmo {
namespace {

Ink inkIn(ViewRole container) {
  switch (container) {
    case ViewRole::linkButton:
      return Ink::link;
    case ViewRole::primaryButton:
    case ViewRole::prominentButton:
      return Ink::onAccent;
    default:
      return Ink::secondary;
  }
}

}  // namespace

SymbolLook SymbolLook::of(ViewRole role, ViewRole container) {
  switch (role) {
    case ViewRole::artwork:
      return {.side = Metrics::artwork, .points = 28, .ink = Ink::accent, .isTile = true};
    case ViewRole::icon:
      return {.side = Metrics::icon, .points = 14, .ink = Ink::accent, .isTile = true};
    case ViewRole::warningSymbol:
      return {.side = 22, .points = 17, .ink = Ink::warning};
    case ViewRole::successSymbol:
      if (container == ViewRole::headline) return {.side = 36, .points = 28, .ink = Ink::success};
      return {.side = 20, .points = 15, .ink = Ink::success};
    case ViewRole::mark:
      return {.side = Metrics::symbol, .points = 12, .ink = Ink::accent};
    default:
      break;
  }
  const bool isSmall = container == ViewRole::linkButton || container == ViewRole::chip;
  return {.side = isSmall ? 14 : Metrics::symbol,
          .points = isSmall ? 11.0 : 13.0,
          .ink = inkIn(container)};
}

double pictureSideOf(ViewRole role) {
  switch (role) {
    case ViewRole::artwork:
      return Metrics::artwork;
    case ViewRole::icon:
      return Metrics::icon;
    default:
      return Metrics::symbol;
  }
}

}  // namespace talmo
