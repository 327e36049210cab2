// The part of the coordinator that finds a player for each key press in auto mode. Everything here
// runs on the command queue.

#include <chrono>
#include <optional>
#include <string>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "app/RoutingResolver.h"
#include "nowplaying/AdapterNowPlaying.h"
#include "platform/Platform.h"
#include "players/ControllerFactory.h"
#include "players/TargetAppRegistry.h"
#include "support/Logger.h"
#include "support/Time.h"
#include "web/WebTabDetection.h"

namespace talmo {
namespace {

constexpr Logger log("coordinator");

// A quick run of key presses stays on one player.
constexpr Duration sameTargetFor = std::chrono::seconds(2);

/// The media session, as far as it decides where a key goes.
struct Session {
  std::optional<std::string> owner;
  std::string title;
  bool isPlaying = false;
};

Session currentSession() {
  if (const auto recent = AdapterNowPlaying::recentOwner()) {
    return {recent->parentBundleID.value_or(recent->bundleID), recent->title, true};
  }
  if (const auto snapshot = AdapterNowPlaying::getSync()) {
    return {snapshot->parentBundleID.value_or(snapshot->bundleID), snapshot->title,
            snapshot->isPlaying};
  }
  return {};
}

}  // namespace

std::shared_ptr<MusicAppController> AppCoordinator::autoController() {
  const Uptime now = platform().dispatch().uptime();
  if (lastAutoResolution_ && now - lastAutoResolution_->at <= sameTargetFor) {
    if (const std::optional<TargetApp> app = TargetAppRegistry::app(lastAutoResolution_->id)) {
      return controllerFor(*app);
    }
  }

  const Session session = currentSession();
  WebTabDetection::Matches tabs = WebTabDetection::cachedMatches();
  if (RoutingResolver::needsTabRefresh(session.owner, tabs)) {
    tabs = WebTabDetection::refreshMatches();
  }
  const std::optional<std::string> id = RoutingResolver::resolve(
      session.owner, session.title, session.isPlaying, tabs, Preferences::lastResolvedTargetID(),
      TargetAppRegistry::defaultInstalledID(), RoutingResolver::isAvailable);
  const std::optional<TargetApp> app = id ? TargetAppRegistry::app(*id) : std::nullopt;
  if (!app) {
    log.info("auto: nothing resolved");
    return nullptr;
  }
  lastAutoResolution_ = {app->id, platform().dispatch().uptime()};
  Preferences::setLastResolvedTargetID(app->id);
  log.info("auto: routing to %{public}s (owner=%{public}s)", app->displayName,
           session.owner.value_or("none"));
  return controllerFor(*app);
}

std::shared_ptr<MusicAppController> AppCoordinator::controllerFor(const TargetApp& app) {
  std::shared_ptr<MusicAppController>& controller = autoControllers_[app.id];
  if (!controller) controller = ControllerFactory::controller(app);
  return controller;
}

void AppCoordinator::launchDefaultPlayer() {
  const std::optional<std::string> id = TargetAppRegistry::defaultInstalledID();
  if (!id) return;
  const std::optional<TargetApp> app = TargetAppRegistry::app(*id);
  if (!app) return;
  if (const std::optional<std::string> url = app->applicationURL()) {
    log.info("auto: nothing playing, launching %{public}s", app->displayName);
    platform().workspace().openApplication(*url);
  }
}

}  // namespace talmo
