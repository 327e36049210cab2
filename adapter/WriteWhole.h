#pragma once

#include <string_view>
#include <system_error>

namespace talmo {

/// Writes all of `text` to a descriptor, however often that has to be started again, and waits
/// while there is no room. The error that kept the rest from being written, if there was one; the
/// caller ignores SIGPIPE.
std::error_code writeWhole(int descriptor, std::string_view text);

}  // namespace talmo
