#pragma once

#include <string>
#include <string_view>

namespace talmo {

/// `text` as one line of valid UTF-8: bytes that are none become U+FFFD, line ends and other
/// control characters the escapes of C ("\n", "\x1b", "\u2028").
std::string oneLogLine(std::string_view text);

}  // namespace talmo
