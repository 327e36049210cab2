#pragma once

#include <memory>
#include <string>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// The running browser with that bundle identifier; null when there is none that can be scripted.
std::shared_ptr<BrowserModel> runningBrowser(const std::string& bundleID);

}  // namespace talmo
