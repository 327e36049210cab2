#include "app/Preferences.h"

#include "platform/Platform.h"

namespace talmo {
namespace {

constexpr const char* selectedTargetAppIDKey = "selectedTargetAppID";
constexpr const char* lastResolvedTargetIDKey = "lastResolvedTargetID";
constexpr const char* hasCompletedOnboardingKey = "hasCompletedOnboarding";
constexpr const char* browserAccessDismissedKey = "browserAccessDismissed";
constexpr const char* hasBeenAccessibilityTrustedKey = "hasBeenAccessibilityTrusted";

}  // namespace

std::optional<std::string> Preferences::selectedTargetAppID() {
  return platform().userDefaults().string(selectedTargetAppIDKey);
}

void Preferences::setSelectedTargetAppID(const std::optional<std::string>& id) {
  platform().userDefaults().setString(selectedTargetAppIDKey, id);
}

std::optional<std::string> Preferences::lastResolvedTargetID() {
  return platform().userDefaults().string(lastResolvedTargetIDKey);
}

void Preferences::setLastResolvedTargetID(const std::optional<std::string>& id) {
  platform().userDefaults().setString(lastResolvedTargetIDKey, id);
}

bool Preferences::hasCompletedOnboarding() {
  return platform().userDefaults().boolean(hasCompletedOnboardingKey);
}

void Preferences::setHasCompletedOnboarding(bool value) {
  platform().userDefaults().setBoolean(hasCompletedOnboardingKey, value);
}

bool Preferences::browserAccessDismissed() {
  return platform().userDefaults().boolean(browserAccessDismissedKey);
}

void Preferences::setBrowserAccessDismissed(bool value) {
  platform().userDefaults().setBoolean(browserAccessDismissedKey, value);
}

bool Preferences::hasBeenAccessibilityTrusted() {
  return platform().userDefaults().boolean(hasBeenAccessibilityTrustedKey);
}

void Preferences::setHasBeenAccessibilityTrusted(bool value) {
  platform().userDefaults().setBoolean(hasBeenAccessibilityTrustedKey, value);
}

}  // namespace talmo
