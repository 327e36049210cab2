#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/macos/interface/view/PartKey.h"
#include "platform/View.h"

namespace talmo {

/// For each view which of the parts that were shown `before` goes on showing it; nothing for one
/// that needs a new part. No part is named twice; one that is not named goes.
std::vector<std::optional<std::size_t>> keptParts(std::span<const PartKey> before,
                                                  std::span<const View> views);

}  // namespace talmo
