#pragma once

#include "platform/macos/interface/view/Ink.h"
#include "platform/ViewRole.h"

namespace talmo {

/// How a text of a role looks in what contains it.
struct TextLook {
  enum class Weight { regular, medium, semibold, bold };

  double points = 12;
  Weight weight = Weight::regular;
  Ink ink = Ink::secondary;

  /// `container` is the role of the nearest stack or button around it that is more than a group.
  static TextLook of(ViewRole role, ViewRole container);

  bool operator==(const TextLook&) const = default;
};

}  // namespace talmo
