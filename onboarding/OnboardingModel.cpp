#include "onboarding/OnboardingModel.h"

#include <chrono>
#include <utility>
#include <variant>

#include "permissions/AccessibilityPermission.h"
#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"
#include "players/TargetAppRegistry.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("onboarding");

/// What the system posts when the grant of any application has changed.
constexpr const char* axPermissionsChanged = "com.apple.accessibility.api";
/// The system's answer lags behind its notice.
constexpr Duration answerLag = 250ms;

constexpr Duration pollInterval = 750ms;
/// Time enough to find the switch.
constexpr Duration helpDelay = 30s;

void replace(std::shared_ptr<Timer>& timer, std::shared_ptr<Timer> next) {
  if (timer) timer->invalidate();
  timer = std::move(next);
}

bool isAutomated(const TargetApp& app) {
  return std::holds_alternative<ScriptingBridge>(app.method);
}

}  // namespace

std::shared_ptr<OnboardingModel> OnboardingModel::make() {
  return std::shared_ptr<OnboardingModel>(new OnboardingModel);
}

OnboardingModel::~OnboardingModel() {
  stopPolling();
  if (isObservingAXChanges_) platform().distributedNotifications().removeObserver(observer_);
}

void OnboardingModel::begin() {
  if (platform().accessibility().isProcessTrusted()) {
    isTrusted.set(true);
    advanceToDone();
    return;
  }
  isTrusted.set(false);
  showReopenHelper.set(false);
  showTapFailed.set(false);
  Dispatch& dispatch = platform().dispatch();
  const std::weak_ptr<OnboardingModel> weak = weak_from_this();
  replace(reopenHelperTimer_, dispatch.scheduledTimer(helpDelay, {}, [weak] {
    const std::shared_ptr<OnboardingModel> self = weak.lock();
    if (!self) return;
    replace(self->reopenHelperTimer_, nullptr);
    self->showReopenHelper.set(true);
  }));
  replace(pollTimer_, dispatch.scheduledTimer(pollInterval, {}, [weak] {
    if (const std::shared_ptr<OnboardingModel> self = weak.lock()) self->pollPermission();
  }));
  observeAXChanges();
}

void OnboardingModel::observeAXChanges() {
  if (std::exchange(isObservingAXChanges_, true)) return;
  observer_ = platform().distributedNotifications().addObserver(
      axPermissionsChanged, [weak = weak_from_this()] {
        if (const std::shared_ptr<OnboardingModel> self = weak.lock()) {
          self->axPermissionsMayHaveChanged();
        }
      });
}

void OnboardingModel::axPermissionsMayHaveChanged() {
  platform().dispatch().mainQueue().asyncAfter(answerLag, [weak = weak_from_this()] {
    if (const std::shared_ptr<OnboardingModel> self = weak.lock()) self->pollPermission();
  });
}

void OnboardingModel::pollPermission() {
  if (isTrusted.get() || !platform().accessibility().isProcessTrusted()) return;
  log.info("Accessibility permission granted during onboarding");
  stopPolling();
  isTrusted.set(true);
  if (!onPermissionGranted || onPermissionGranted()) {
    advanceToDone();
    return;
  }
  log.info("tap failed to start despite grant; offering Quit & Reopen");
  showReopenHelper.set(false);
  showTapFailed.set(true);
}

void OnboardingModel::stopPolling() {
  replace(pollTimer_, nullptr);
  replace(reopenHelperTimer_, nullptr);
}

void OnboardingModel::openSystemSettings() {
  AccessibilityPermission::openSystemSettings();
}

void OnboardingModel::quitAndReopen() {
  AccessibilityPermission::relaunch();
}

void OnboardingModel::fixAndRetry() {
  log.info("user-initiated Accessibility reset + reopen from onboarding");
  AccessibilityPermission::resetAndReopenSettings();
}

void OnboardingModel::skipPermission() {
  advanceToDone();
}

void OnboardingModel::finish() {
  if (std::exchange(hasFinished_, true)) return;
  // Copies, as the owner may let go of this object.
  const std::function<void()> dismiss = onRequestDismiss;
  const std::function<void()> finished = onFinished;
  if (dismiss) dismiss();
  if (finished) finished();
}

void OnboardingModel::advanceToDone() {
  const std::optional<std::string> id = TargetAppRegistry::defaultInstalledID();
  routedPlayer.set(id ? TargetAppRegistry::app(*id) : std::nullopt);
  automationPrimerPlayerName.set(computeAutomationPrimer());
  step.set(Step::done);
  if (!automationPrimerPlayerName.get()) refreshAutomationPrimer();
}

std::optional<std::string> OnboardingModel::computeAutomationPrimer() const {
  const std::optional<TargetApp>& player = routedPlayer.get();
  if (!player || !isAutomated(*player)) return std::nullopt;
  if (AutomationPermission::cachedStatus(player->bundleID) != AutomationStatus::notDetermined) {
    return std::nullopt;
  }
  return player->displayName;
}

void OnboardingModel::refreshAutomationPrimer() {
  const std::optional<TargetApp>& player = routedPlayer.get();
  if (!player || !isAutomated(*player)) return;
  if (AutomationPermission::cachedStatus(player->bundleID)) return;
  AutomationPermission::refreshStatus(
      player->bundleID,
      [weak = weak_from_this(), name = player->displayName](AutomationStatus status) {
        const std::shared_ptr<OnboardingModel> self = weak.lock();
        if (!self || self->step.get() != Step::done) return;
        if (status == AutomationStatus::notDetermined) self->automationPrimerPlayerName.set(name);
      });
}

void OnboardingModel::observe(const std::function<void()>& callback) {
  const auto observer = [callback](const auto&) { callback(); };
  step.observe(observer);
  routedPlayer.observe(observer);
  isTrusted.observe(observer);
  showReopenHelper.observe(observer);
  showTapFailed.observe(observer);
  automationPrimerPlayerName.observe(observer);
}

}  // namespace talmo
