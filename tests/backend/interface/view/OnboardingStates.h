#pragma once

#include <map>
#include <string>

#include "platform/View.h"

namespace talmo::test {

/// The first run in each of its states, by name, on a machine whose applications have icons. Its
/// buttons do nothing.
std::map<std::string, View> onboardingStates();

}  // namespace talmo::test
