#include "platform/macos/interface/view/LinePlan.h"

#include <algorithm>

namespace talmo {

LinePlan LinePlan::of(std::span<const PartKey> parts, ViewRole role) {
  // The last one stands apart from the others.
  if (role == ViewRole::tray) return {.roomBefore = parts.empty() ? 0 : parts.size() - 1};
  auto wide = std::ranges::find(parts, ViewKind::text, &PartKey::kind);
  if (wide == parts.end()) wide = std::ranges::find(parts, ViewKind::vertical, &PartKey::kind);
  if (wide == parts.end()) return {.roomBefore = parts.size()};
  return {.wide = static_cast<std::size_t>(wide - parts.begin())};
}

bool hasOwnWidth(const PartKey& part) {
  if (part.kind == ViewKind::text || part.kind == ViewKind::vertical) return false;
  if (part.kind == ViewKind::horizontal) return part.role == ViewRole::chip;
  return part.role != ViewRole::row;
}

}  // namespace talmo
