#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// The running browser with that bundle identifier; null when there is none.
using BrowserResolver = std::function<std::shared_ptr<BrowserModel>(const std::string& bundleID)>;

}  // namespace talmo
