#pragma once

#include <functional>
#include <optional>
#include <sys/types.h>

#include "tests/support/PixelArea.h"
#include "tests/support/ScreenWindows.h"

namespace talmo::test {

/// Where Talmo's icon in the tray is; nothing while it is not there.
std::optional<PixelArea> talmoIcon(ScreenWindows& windows, pid_t talmo);

/// A condition to wait for: the icon is in the tray and has stayed where it is for a while. A tray
/// moves its icons when one comes, and a click in between is nobody's.
std::function<bool()> talmoIconRests(ScreenWindows& windows, pid_t talmo);

/// Waits for that; whether it happened.
bool waitForTalmoIcon(ScreenWindows& windows, pid_t talmo);

/// The open panel, and the open menu of the icon or of the gear.
std::optional<ScreenWindows::Window> talmoPanel(ScreenWindows& windows, pid_t talmo);
std::optional<ScreenWindows::Window> talmoMenu(ScreenWindows& windows, pid_t talmo);

/// The title of the first run's window.
inline constexpr const char* firstRunTitle = "Welcome to Talmo";

}  // namespace talmo::test
