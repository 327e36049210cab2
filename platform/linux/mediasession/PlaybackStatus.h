#pragma once

namespace talmo {

/// What a player says that it does (MPRIS, `PlaybackStatus`).
enum class PlaybackStatus { stopped, paused, playing };

}  // namespace talmo
