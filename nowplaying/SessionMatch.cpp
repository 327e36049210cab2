#include "nowplaying/SessionMatch.h"

#include <optional>
#include <string>

#include "support/BundleIdentifier.h"
#include "web/WebSessionOwnership.h"
#include "web/WebTabDetection.h"

namespace talmo {
namespace {

using Verdict = WebSessionOwnership::Verdict;

bool matches(const std::string& owner, const std::string& title, const TargetApp& target) {
  const WebPlayerTarget* const web = target.webTarget();
  if (web == nullptr) return belongsToApplication(owner, target.bundleID);
  const std::optional<WebTabMatch> tab = WebTabDetection::cachedMatch(web->id);
  return tab && belongsToApplication(owner, tab->browserBundleID) &&
         WebSessionOwnership::judge(title, tab, WebTabDetection::siblings(*tab)) != Verdict::other;
}

}  // namespace

bool SessionMatch::matches(const AdapterNowPlayingSnapshot& snapshot, const TargetApp& target) {
  return talmo::matches(snapshot.bundleID, snapshot.title, target) ||
         (snapshot.parentBundleID &&
          talmo::matches(*snapshot.parentBundleID, snapshot.title, target));
}

bool SessionMatch::matches(const SystemNowPlayingInfo& info, const TargetApp& target) {
  return info.bundleID && talmo::matches(*info.bundleID, info.title, target);
}

}  // namespace talmo
