#pragma once

#include <string>

namespace talmo {

/// Asks the now-playing helpers that a Talmo of this user has left behind to end: the processes in
/// which perl runs that very script, and whose parent is no Talmo that still runs. What merely
/// names the script, or a path like it, is let be. Returns whether there was one.
bool endLeftoverHelpers(const std::string& script);

}  // namespace talmo
