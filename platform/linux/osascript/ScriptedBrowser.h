#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// A browser that a script tells something.
struct ScriptedBrowser {
  std::string bundleID;
  std::shared_ptr<BrowserModel> model;
};

/// The running browser with that bundle identifier; null when there is none.
using BrowserResolver = std::function<std::shared_ptr<BrowserModel>(const std::string& bundleID)>;

}  // namespace talmo
