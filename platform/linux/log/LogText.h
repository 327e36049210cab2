#pragma once

#include <string>
#include <string_view>

namespace talmo {

/// `text` as one line of valid UTF-8: bytes that are none become U+FFFD, line ends and other
/// control characters the escapes of C ("\n", "\x1b", "\u2028").
std::string oneLogLine(std::string_view text);

/// The longest beginning of valid UTF-8 `text` that has at most `limit` bytes and ends with a whole
/// character.
std::string_view cutToBytes(std::string_view text, std::size_t limit);

}  // namespace talmo
