#pragma once

#include <optional>

#include "platform/linux/applications/DesktopEntry.h"
#include "support/Time.h"

namespace talmo {

/// When the application last put a file on the desktop's list of recently used files
/// (recently-used.xbel in the person's data folder; freedesktop.org's desktop bookmark format).
/// Nothing when it never did or there is no readable list. Reads the file; any thread.
std::optional<Date> lastUseOfAFile(const DesktopEntry& entry);

}  // namespace talmo
