#pragma once

#include "players/KeyStroke.h"

namespace talmo {

/// The three key strokes that drive one key-stroke player.
struct KeyMap {
  KeyStroke playPause;
  KeyStroke next;
  KeyStroke previous;

  bool operator==(const KeyMap&) const = default;
};

}  // namespace talmo
