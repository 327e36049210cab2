#pragma once

#include <optional>

#include "nowplaying/NowPlayingState.h"
#include "platform/View.h"
#include "players/TargetApp.h"

namespace talmo {

/// What `player` plays: artwork, or else the player's icon, title and artist, and a chip while it
/// plays. Main thread.
View nowPlayingCard(const NowPlayingState& state, const std::optional<TargetApp>& player);

}  // namespace talmo
