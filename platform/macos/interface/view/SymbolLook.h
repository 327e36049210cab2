#pragma once

#include "platform/macos/interface/view/Ink.h"
#include "platform/ViewRole.h"

namespace talmo {

/// How a symbol of a role looks in what contains it.
struct SymbolLook {
  /// Of the place that it is in the middle of.
  double side = 16;
  /// Of the font that it goes with.
  double points = 13;
  Ink ink = Ink::secondary;
  /// Whether it stands, on a ground of its own, for a picture that there is none of.
  bool isTile = false;

  /// `container` is the role of the nearest stack or button around it that is more than a group.
  static SymbolLook of(ViewRole role, ViewRole container);

  bool operator==(const SymbolLook&) const = default;
};

/// The side of the place of a picture or an asset.
double pictureSideOf(ViewRole role);

}  // namespace talmo
