#pragma once

#include <cstddef>
#include <string_view>

namespace talmo {

/// The longest beginning of valid UTF-8 `text` that has at most `limit` bytes and ends with a whole
/// character.
std::string_view cutToBytes(std::string_view text, std::size_t limit);

}  // namespace talmo
