#pragma once

#include <string>

#include "platform/View.h"

namespace talmo {

/// What assistive technology says of a part: its label, or else what is written in it, from its
/// beginning.
std::string spokenText(const View& view);

}  // namespace talmo
