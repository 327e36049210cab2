#include "players/TargetApp.h"

#include <variant>
#include <vector>

#include "platform/Platform.h"
#include "web/WebTabDetection.h"

namespace talmo {

bool TargetApp::isWeb() const {
  return webTarget() != nullptr;
}

const WebPlayerTarget* TargetApp::webTarget() const {
  return std::get_if<WebPlayerTarget>(&method);
}

std::optional<std::string> TargetApp::applicationURL() const {
  if (isWeb()) return std::nullopt;
  return platform().workspace().urlForApplication(bundleID);
}

bool TargetApp::isInstalled() const {
  if (const WebPlayerTarget* web = webTarget()) {
    return WebTabDetection::cachedMatch(web->id).has_value();
  }
  return applicationURL().has_value();
}

std::optional<RunningApplication> TargetApp::runningApplication() const {
  if (const WebPlayerTarget* web = webTarget()) {
    return WebTabDetection::hostingRunningApplication(web->id);
  }
  std::vector<RunningApplication> running = platform().workspace().runningApplications(bundleID);
  if (running.empty()) return std::nullopt;
  return std::move(running.front());
}

}  // namespace talmo
