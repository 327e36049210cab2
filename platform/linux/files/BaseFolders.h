#pragma once

#include <filesystem>

namespace talmo {

// Folders of the XDG base directory specification, where a variable that holds no absolute path
// counts as not set. They read the environment.

/// XDG_CONFIG_HOME, or ~/.config.
std::filesystem::path configHome();

/// XDG_STATE_HOME, or ~/.local/state.
std::filesystem::path stateHome();

}  // namespace talmo
