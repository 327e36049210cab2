#pragma once

#include <memory>
#include <string>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// The running browser with that bundle identifier; null when there is none. One that does not let
/// itself be scripted refuses what it is asked.
std::shared_ptr<BrowserModel> runningBrowser(const std::string& bundleID);

}  // namespace talmo
