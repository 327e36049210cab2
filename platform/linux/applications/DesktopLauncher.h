#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/DesktopEntry.h"

namespace talmo {

/// Starts an entry's application and hands it the URLs; in words what went wrong, if anything did.
///
/// The application is in a session of its own, has none of our descriptors, blocks no signal, reads
/// and writes the null device, and goes on when we end. An application that the session bus starts
/// is awaited until it has taken the request, so: on a background thread.
std::optional<std::string> launchDesktopEntry(const DesktopEntry& entry,
                                              const std::vector<std::string>& urls);

/// Starts the program at a path, without arguments, as the one that is to follow this one; in words
/// what went wrong, if anything did. It is as above but writes where this program writes, so that
/// it goes on with its log.
std::optional<std::string> launchSuccessor(const std::string& path);

}  // namespace talmo
