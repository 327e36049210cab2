#pragma once

#include <map>
#include <string>

#include "panel/PanelActions.h"
#include "platform/View.h"

namespace talmo::test {

/// The panel in each of its main states, by name, on a machine whose applications have icons.
std::map<std::string, View> panelStates(const PanelActions& actions = {});

}  // namespace talmo::test
