#pragma once

#include <optional>
#include <string>

#include "platform/RunningApplication.h"
#include "players/ControlMethod.h"

namespace talmo {

/// One selectable player. A value; what it derives is asked of the system afresh at every call,
/// on any thread.
struct TargetApp {
  /// Stored in the preferences, used in log lines and for look-up.
  std::string id;
  std::string displayName;
  /// Empty for a web target.
  std::string bundleID;
  ControlMethod method;

  bool operator==(const TargetApp&) const = default;

  bool isWeb() const;

  /// The web player; nothing (a null pointer) for a native target. Lives as long as this value.
  const WebPlayerTarget* webTarget() const;

  /// Where the application is installed; nothing for a web target.
  std::optional<std::string> applicationURL() const;

  /// Whether the application is installed; for a web target, whether one of its tabs is known to
  /// be open. No browser is asked.
  bool isInstalled() const;

  /// The first running instance; for a web target, the browser that hosts its known tab.
  std::optional<RunningApplication> runningApplication() const;
};

}  // namespace talmo
