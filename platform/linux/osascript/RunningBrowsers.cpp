#include "platform/linux/osascript/RunningBrowsers.h"

#include <utility>
#include <vector>

#include "platform/linux/browsers/BrowserInstance.h"
#include "platform/linux/browsers/RemoteBrowser.h"

namespace talmo {

std::shared_ptr<BrowserModel> runningBrowser(const std::string& bundleID) {
  std::vector<BrowserInstance> instances = browserInstances(bundleID);
  if (instances.empty()) return nullptr;
  return std::make_shared<RemoteBrowser>(std::move(instances));
}

}  // namespace talmo
