#include "platform/macos/interface/view/TextLook.h"

namespace talmo {

TextLook TextLook::of(ViewRole role, ViewRole container) {
  switch (container) {
    case ViewRole::chip:
      return {.points = 11, .weight = Weight::semibold, .ink = Ink::primary};
    case ViewRole::prominentButton:
      return {.points = 12, .weight = Weight::medium, .ink = Ink::onAccent};
    case ViewRole::plainButton:
      return {.points = 12, .weight = Weight::medium, .ink = Ink::primary};
    case ViewRole::linkButton:
      return {.points = 12, .weight = Weight::medium, .ink = Ink::link};
    case ViewRole::primaryButton:
      return {.points = 13, .weight = Weight::semibold, .ink = Ink::onAccent};
    case ViewRole::ghostButton:
      return {.points = 13, .weight = Weight::medium, .ink = Ink::secondary};
    default:
      break;
  }
  const bool isLarge = container == ViewRole::card || container == ViewRole::step;
  switch (role) {
    case ViewRole::headline:
      return {.points = 32, .weight = Weight::bold, .ink = Ink::primary};
    case ViewRole::title:
      return {.points = container == ViewRole::card ? 15.0 : 13.0,
              .weight = Weight::semibold,
              .ink = Ink::primary};
    case ViewRole::label:
      return {.points = 13, .weight = Weight::medium, .ink = Ink::primary};
    case ViewRole::header:
      return {.points = 11, .weight = Weight::semibold, .ink = Ink::tertiary};
    case ViewRole::detail:
      return {.points = isLarge ? 13.0 : 12.0};
    default:
      return {.points = container == ViewRole::step ? 13.0 : 12.0};
  }
}

}  // namespace talmo
