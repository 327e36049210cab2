#pragma once

#include <string>
#include <sys/types.h>

namespace talmo::test {

/// Minimises the window of a process through the window manager and waits until it is done. Throws
/// when that does not happen.
void minimiseWindowOf(pid_t pid, const std::string& display);

}  // namespace talmo::test
