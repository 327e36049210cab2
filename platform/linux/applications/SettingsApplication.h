#pragma once

#include <optional>
#include <string>

#include "platform/linux/applications/DesktopEntry.h"

namespace talmo {

/// The desktop's settings, for a URL that names a pane of the Mac's; at the keyboard's shortcuts
/// where they have such a page, as these are what may hold the media keys. Nothing for any other
/// URL, and where no desktop's settings are installed.
std::optional<DesktopEntry> settingsApplicationFor(const std::string& url);

}  // namespace talmo
