#include "platform/linux/osascript/RunningBrowsers.h"

namespace talmo {

std::shared_ptr<BrowserModel> runningBrowser(const std::string& /*bundleID*/) {
  return nullptr;
}

}  // namespace talmo
