#pragma once

#include <functional>
#include <set>
#include <string>

#include "panel/PanelViewModel.h"
#include "platform/View.h"
#include "players/TargetApp.h"

namespace talmo {

/// One player of the list. `activeBundleIDs` are the applications that sound; `press` is called
/// with the player's id. Main thread.
View playerRow(const TargetApp& app, const PanelViewModel& model,
               const std::set<std::string>& activeBundleIDs,
               const std::function<void(const std::string&)>& press);

}  // namespace talmo
