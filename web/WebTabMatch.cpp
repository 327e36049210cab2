#include "web/WebTabMatch.h"

#include "platform/Platform.h"

namespace talmo {

bool WebTabMatch::isBrowserRunning() const {
  return !platform().workspace().runningApplications(browserBundleID).empty();
}

}  // namespace talmo
