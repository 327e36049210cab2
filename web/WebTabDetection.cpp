#include "web/WebTabDetection.h"

#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

struct State {
  Mutex cacheLock;
  std::map<std::string, WebTabMatch> cachedMatches TALMO_GUARDED_BY(cacheLock);
};

State& state() {
  return platform().states().of<State>();
}

}  // namespace

std::optional<WebTabMatch> WebTabDetection::cachedMatch(const std::string& targetID) {
  State& shared = state();
  const MutexLock lock(shared.cacheLock);
  const auto found = shared.cachedMatches.find(targetID);
  if (found == shared.cachedMatches.end()) return std::nullopt;
  return found->second;
}

std::optional<RunningApplication> WebTabDetection::hostingRunningApplication(
    const std::string& targetID) {
  const std::optional<WebTabMatch> match = cachedMatch(targetID);
  if (!match) return std::nullopt;
  const std::vector<RunningApplication> browsers =
      platform().workspace().runningApplications(match->browserBundleID);
  if (browsers.empty()) return std::nullopt;
  return browsers.front();
}

void WebTabDetection::cache(std::map<std::string, WebTabMatch> matches) {
  State& shared = state();
  const MutexLock lock(shared.cacheLock);
  shared.cachedMatches = std::move(matches);
}

}  // namespace talmo
