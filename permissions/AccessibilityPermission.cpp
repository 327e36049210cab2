#include "permissions/AccessibilityPermission.h"

#include <chrono>
#include <optional>
#include <string>

#include "app/Preferences.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Logger log("coordinator");
constexpr const char* settingsURLString =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
constexpr const char* resetTool = "/usr/bin/tccutil";

/// What the system posts when the grant of any application has changed.
constexpr const char* axPermissionsChanged = "com.apple.accessibility.api";
/// The system's answer lags behind its notice.
constexpr Duration answerLag = 250ms;

/// Without trust it is polled more often, so that a grant is noticed soon.
constexpr Duration trustedInterval = 10s;
constexpr Duration untrustedInterval = 3s;

struct State {
  const bool isRunningTests =
      platform().application().environmentVariable("XCTestConfigurationFilePath").has_value();
};

bool isRunningTests() {
  return platform().states().of<State>().isRunningTests;
}

}  // namespace

std::shared_ptr<AccessibilityPermission> AccessibilityPermission::make() {
  return std::shared_ptr<AccessibilityPermission>(new AccessibilityPermission);
}

AccessibilityPermission::AccessibilityPermission()
    : isTrusted_(platform().accessibility().isProcessTrusted()) {}

AccessibilityPermission::~AccessibilityPermission() {
  platform().distributedNotifications().removeObserver(observer_);
}

void AccessibilityPermission::promptIfNeeded() {
  setTrusted(platform().accessibility().isProcessTrusted());
  if (isTrusted_) return;
  if (Preferences::hasBeenAccessibilityTrusted()) {
    log.info(
        "untrusted at launch, but this Mac has granted before; skipping the system prompt (stale "
        "cache or a differently-signed copy) and leaving it to the panel");
    return;
  }
  if (isRunningTests()) return;
  setTrusted(platform().accessibility().isProcessTrustedWithPrompt(true));
}

void AccessibilityPermission::startMonitoring() {
  if (isTrusted_) Preferences::setHasBeenAccessibilityTrusted(true);
  scheduleTimer();
  if (isObservingAXChanges_) return;
  isObservingAXChanges_ = true;
  observer_ = platform().distributedNotifications().addObserver(
      axPermissionsChanged, [weak = weak_from_this()] {
        if (const std::shared_ptr<AccessibilityPermission> self = weak.lock()) {
          self->axPermissionsMayHaveChanged();
        }
      });
}

void AccessibilityPermission::setTrusted(bool trusted) {
  isTrusted_ = trusted;
  if (trusted) Preferences::setHasBeenAccessibilityTrusted(true);
}

void AccessibilityPermission::scheduleTimer() {
  if (timer_) timer_->invalidate();
  const Duration interval = isTrusted_ ? trustedInterval : untrustedInterval;
  timer_ = platform().dispatch().scheduledTimer(interval, interval / 2, [weak = weak_from_this()] {
    if (const std::shared_ptr<AccessibilityPermission> self = weak.lock()) self->check();
  });
}

void AccessibilityPermission::check() {
  const bool isTrustedNow = platform().accessibility().isProcessTrusted();
  if (isTrustedNow == isTrusted_) return;
  setTrusted(isTrustedNow);
  if (isTrusted_) sawChangeWhileUntrusted_ = false;
  scheduleTimer();
  if (onChange) onChange(isTrusted_);
}

void AccessibilityPermission::axPermissionsMayHaveChanged() {
  platform().dispatch().mainQueue().asyncAfter(answerLag, [weak = weak_from_this()] {
    if (const std::shared_ptr<AccessibilityPermission> self = weak.lock()) {
      self->checkForStaleTrust();
    }
  });
}

void AccessibilityPermission::checkForStaleTrust() {
  check();
  if (isTrusted_ || sawChangeWhileUntrusted_) return;
  sawChangeWhileUntrusted_ = true;
  log.info(
      "accessibility changed system-wide but we still read untrusted; offering relaunch (stale "
      "trust cache)");
  if (onStaleTrustSuspected) onStaleTrustSuspected();
}

void AccessibilityPermission::openSystemSettings() {
  platform().workspace().openURL(settingsURLString);
}

void AccessibilityPermission::relaunch() {
  platform().workspace().openNewInstance(
      platform().bundle().url(), [](const std::optional<std::string>&) {
        platform().dispatch().mainQueue().async([] { platform().application().terminate(); });
      });
}

void AccessibilityPermission::resetAndReopenSettings() {
  platform().dispatch().globalQueue(QualityOfService::userInitiated).async([] {
    const std::string identifier = platform().bundle().identifier().value_or("nl.brelm.Talmo");
    const std::shared_ptr<ChildProcess> reset =
        platform().childProcesses().make({.executable = resetTool,
                                          .arguments = {"reset", "Accessibility", identifier},
                                          .standardOutput = ChildOutput::nullDevice,
                                          .standardError = ChildOutput::nullDevice});
    reset->launch();
    reset->waitUntilExit();
    platform().dispatch().mainQueue().async([] { openSystemSettings(); });
  });
}

}  // namespace talmo
