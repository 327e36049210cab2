#pragma once

#include "platform/View.h"

namespace talmo {

/// The bars beside a player that sounds; they stand still unless they are moving.
inline View equalizer(bool isMoving) {
  View view;
  view.identity = "equalizer";
  view.kind = ViewKind::equalizer;
  view.role = ViewRole::equalizer;
  view.isOn = isMoving;
  return view;
}

}  // namespace talmo
