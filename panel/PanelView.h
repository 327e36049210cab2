#pragma once

#include <optional>
#include <set>
#include <string>

#include "nowplaying/NowPlayingState.h"
#include "panel/PanelActions.h"
#include "panel/PanelViewModel.h"
#include "platform/View.h"
#include "players/TargetApp.h"

namespace talmo {

/// The whole panel. `hero` is what `player` plays; `activeBundleIDs` are the applications that
/// sound. Main thread.
View panelView(const PanelViewModel& model, const NowPlayingState& hero,
               const std::optional<TargetApp>& player, const std::set<std::string>& activeBundleIDs,
               const PanelActions& actions);

}  // namespace talmo
