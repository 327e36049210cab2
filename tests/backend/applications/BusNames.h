#pragma once

#include <cstdint>
#include <string>

#include "platform/ProcessIdentifier.h"

namespace talmo::test {

/// Whether somebody owns the bus name.
bool hasOwner(const std::string& busName);

/// The process that owns the bus name; 0 when there is none.
ProcessIdentifier ownerOf(const std::string& busName);

/// Has the bus start the service of that name, and gives its answer: 1 when that started it, 2 when
/// it was there already (StartServiceByName); 0 for a failure.
std::uint32_t startService(const std::string& busName);

/// Waits until the bus has noticed that a player is gone. Throws when it does not.
void waitUntilGone(const std::string& playerName);

}  // namespace talmo::test
