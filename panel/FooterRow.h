#pragma once

#include "panel/PanelViewModel.h"
#include "platform/View.h"

namespace talmo {

/// Where the media keys go, and the options.
View footerRow(const PanelViewModel& model);

}  // namespace talmo
