#pragma once

#include <string>
#include <string_view>

namespace talmo {

/// Whether the bus name is that of a media player, and not of something that shows other players
/// under a name of its own.
bool isPlayerName(std::string_view busName);

/// By which bundle identifier the player is reported: that of the table's application with such a
/// bus name or with such an executable, else the player's own `desktopEntry` if it can be one, else
/// what tells its bus name from other players'. `executable`, a path, and `desktopEntry` may be
/// empty.
std::string bundleIdentifierOf(std::string_view busName, std::string_view executable,
                               std::string_view desktopEntry);

}  // namespace talmo
