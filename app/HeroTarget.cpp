#include "app/HeroTarget.h"

#include <chrono>
#include <utility>

#include "app/Preferences.h"
#include "app/RoutingResolver.h"
#include "platform/Platform.h"
#include "players/TargetAppRegistry.h"

namespace talmo {
namespace {

constexpr Duration askAgainAfter = std::chrono::seconds(2);

}  // namespace

std::shared_ptr<HeroTarget> HeroTarget::make(std::function<void()> onChange) {
  return std::shared_ptr<HeroTarget>(new HeroTarget(std::move(onChange)));
}

std::optional<TargetApp> HeroTarget::target(const std::optional<std::string>& pinnedID,
                                            const std::optional<std::string>& sessionOwner,
                                            const std::string& sessionTitle) {
  if (pinnedID) {
    if (std::optional<TargetApp> pinned = TargetAppRegistry::app(*pinnedID)) return pinned;
  }
  std::optional<std::string> id = RoutingResolver::followedFromSession(
      sessionOwner, sessionTitle, WebTabDetection::cachedMatches());
  if (!id) {
    refreshFallback();
    id = fallbackID_;
  }
  return id ? TargetAppRegistry::app(*id) : std::nullopt;
}

void HeroTarget::refreshFallback() {
  const Uptime now = platform().dispatch().uptime();
  if (refreshedAt_ && now - *refreshedAt_ < askAgainAfter) return;
  refreshedAt_ = now;
  platform()
      .dispatch()
      .globalQueue(QualityOfService::userInitiated)
      .async([weak = weak_from_this()] {
        std::optional<std::string> id = RoutingResolver::resolve(
            std::nullopt, "", false, {}, Preferences::lastResolvedTargetID(),
            TargetAppRegistry::defaultInstalledID(), RoutingResolver::isAvailable);
        platform().dispatch().mainQueue().async([weak, id = std::move(id)]() mutable {
          const std::shared_ptr<HeroTarget> self = weak.lock();
          if (!self || id == self->fallbackID_) return;
          self->fallbackID_ = std::move(id);
          self->onChange_();
        });
      });
}

}  // namespace talmo
