#pragma once

#include <memory>
#include <string>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// The browser with that bundle identifier; null when none runs that could have a debugging socket.
std::shared_ptr<BrowserModel> runningBrowser(const std::string& bundleID);

}  // namespace talmo
