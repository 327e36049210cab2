#pragma once

#include <string_view>

namespace talmo {

/// Whether a word in lower case means something to AppleScript or to a browser, so that it names no
/// variable.
bool isReservedWord(std::string_view word);

}  // namespace talmo
