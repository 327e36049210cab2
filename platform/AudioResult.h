#pragma once

#include <cstdint>

namespace talmo {

/// What the audio system answers: `value` counts when `status` (an `OSStatus`) is 0.
template <class Value>
struct AudioResult {
  std::int32_t status = 0;
  Value value{};
};

}  // namespace talmo
