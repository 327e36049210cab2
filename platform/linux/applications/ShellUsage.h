#pragma once

#include <optional>

#include "platform/linux/applications/DesktopEntry.h"
#include "support/Time.h"

namespace talmo {

/// When GNOME Shell last saw the application in front, by its own record (application_state in its
/// data folder), which it writes every few minutes. Nothing when it never did, where there is
/// another desktop, and when the record is damaged. Reads the file; any thread.
std::optional<Date> lastTimeInFront(const DesktopEntry& entry);

}  // namespace talmo
