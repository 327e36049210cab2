#pragma once

#include <map>
#include <string>

#include "platform/View.h"

namespace talmo::test {

/// The panel in each of its main states, by name, on a machine whose applications have icons.
std::map<std::string, View> panelStates();

}  // namespace talmo::test
