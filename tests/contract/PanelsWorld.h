#pragma once

#include "platform/Panels.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A desktop on which panels can be shown, and a person with a keyboard.
class PanelsWorld : public DispatchWorld {
 public:
  virtual Panels& panels() = 0;

  /// Presses Escape; it goes to whoever has the keys.
  virtual void pressEscape() = 0;

  /// Has a window of another application take the keys.
  virtual void takeKeysAway() = 0;
};

}  // namespace talmo::test
