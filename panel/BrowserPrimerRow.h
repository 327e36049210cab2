#pragma once

#include <functional>

#include "panel/BrowserPrimer.h"
#include "platform/View.h"

namespace talmo {

/// Offers to look for players in a browser's tabs.
View browserPrimerRow(const BrowserPrimer& primer, std::function<void()> allow,
                      std::function<void()> dismiss);

}  // namespace talmo
