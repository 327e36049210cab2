#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/linux/osascript/ScriptToken.h"

namespace talmo {

/// The longest script that is read, in bytes. A single argument of a program cannot be longer than
/// half of it (MAX_ARG_STRLEN of Linux).
inline constexpr std::size_t longestScript = 256UL * 1024;

/// The tokens of a script, the last of which is its end. Comments and continued lines are gone, and
/// a token `endOfLine` stands for any number of line ends. Throws a `ScriptError`.
std::vector<ScriptToken> readTokens(std::string_view script);

}  // namespace talmo
