#include "app/RoutingResolver.h"

#include <vector>

#include "players/TargetApp.h"
#include "players/TargetAppRegistry.h"
#include "support/BundleIdentifier.h"
#include "web/SupportedBrowsers.h"
#include "web/WebSessionOwnership.h"
#include "web/WebTabMatch.h"

namespace talmo {
namespace {

std::vector<WebTabMatch> tabsIn(const std::string& owner, const RoutingResolver::WebTabs& webTabs) {
  std::vector<WebTabMatch> found;
  for (const auto& [id, tab] : webTabs) {
    if (belongsToApplication(owner, tab.browserBundleID)) found.push_back(tab);
  }
  return found;
}

std::optional<std::string> nativeTargetID(const std::string& owner) {
  for (const TargetApp& app : TargetAppRegistry::all()) {
    if (belongsToApplication(owner, app.bundleID)) return app.id;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> RoutingResolver::resolve(
    const std::optional<std::string>& sessionOwner, const std::string& sessionTitle,
    bool /*sessionIsPlaying*/, const WebTabs& webTabs,
    const std::optional<std::string>& lastResolvedID, const std::optional<std::string>& defaultID,
    const std::function<bool(const std::string&)>& isAvailable) {
  if (std::optional<std::string> id = followedFromSession(sessionOwner, sessionTitle, webTabs)) {
    return id;
  }
  if (lastResolvedID && isAvailable(*lastResolvedID)) return lastResolvedID;
  return defaultID;
}

std::optional<std::string> RoutingResolver::targetID(const std::string& forSessionOwner,
                                                     const std::string& title,
                                                     const WebTabs& webTabs) {
  const std::vector<WebTabMatch> candidates = tabsIn(forSessionOwner, webTabs);
  if (candidates.empty()) return nativeTargetID(forSessionOwner);
  for (const WebTabMatch& candidate : candidates) {
    std::vector<WebTabMatch> siblings = candidates;
    std::erase_if(siblings, [&](const WebTabMatch& other) { return other.url == candidate.url; });
    if (WebSessionOwnership::judge(title, candidate, siblings) ==
        WebSessionOwnership::Verdict::mine) {
      return candidate.targetID;
    }
  }
  return std::nullopt;
}

std::optional<std::string> RoutingResolver::followedFromSession(
    const std::optional<std::string>& sessionOwner, const std::string& sessionTitle,
    const WebTabs& webTabs) {
  if (!sessionOwner) return std::nullopt;
  return targetID(*sessionOwner, sessionTitle, webTabs);
}

bool RoutingResolver::needsTabRefresh(const std::optional<std::string>& sessionOwner,
                                      const WebTabs& webTabs) {
  return SupportedBrowsers::isSupported(sessionOwner) && tabsIn(*sessionOwner, webTabs).empty();
}

bool RoutingResolver::isAvailable(const std::string& id) {
  const std::optional<TargetApp> app = TargetAppRegistry::app(id);
  return app && app->runningApplication().has_value();
}

}  // namespace talmo
