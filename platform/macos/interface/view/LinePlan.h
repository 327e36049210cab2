#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/macos/interface/view/PartKey.h"
#include "platform/ViewRole.h"

namespace talmo {

/// Where the room in a line goes that its parts do not need.
struct LinePlan {
  /// The part that takes it.
  std::optional<std::size_t> wide;
  /// Where no part does: the room is before the part of this index, or after all of them.
  std::optional<std::size_t> roomBefore;

  /// `role` is the line's own.
  static LinePlan of(std::span<const PartKey> parts, ViewRole role);

  bool operator==(const LinePlan&) const = default;
};

/// Whether a part below others is only as wide as it has to be.
bool hasOwnWidth(const PartKey& part);

}  // namespace talmo
