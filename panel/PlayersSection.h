#pragma once

#include <functional>
#include <set>
#include <string>

#include "panel/PanelViewModel.h"
#include "platform/View.h"

namespace talmo {

/// The players to choose from, in the order in which the keyboard moves through them. Main thread.
View playersSection(const PanelViewModel& model, const std::set<std::string>& activeBundleIDs,
                    const std::function<void(const std::string&)>& press);

}  // namespace talmo
