#include "platform/macos/interface/view/KeptParts.h"

namespace talmo {

std::vector<std::optional<std::size_t>> keptParts(std::span<const PartKey> before,
                                                  std::span<const View> views) {
  std::vector<bool> isTaken(before.size(), false);
  std::vector<std::optional<std::size_t>> kept;
  kept.reserve(views.size());
  for (const View& view : views) {
    const PartKey key = PartKey::of(view);
    std::size_t index = 0;
    while (index < before.size() && (isTaken[index] || before[index] != key)) ++index;
    if (index == before.size()) {
      kept.emplace_back();
    } else {
      isTaken[index] = true;
      kept.emplace_back(index);
    }
  }
  return kept;
}

}  // namespace talmo
