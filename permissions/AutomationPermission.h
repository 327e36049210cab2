#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "permissions/AutomationStatus.h"
#include "support/Time.h"

namespace talmo {

/// Consent to automate other applications, per bundle identifier: asked without a prompt unless the
/// person wants one, and cached for the whole process. Any thread may call unless a function says
/// otherwise; completions run on the main queue. No failure is reported.
class AutomationPermission {
 public:
  using Completion = std::function<void(AutomationStatus)>;
  using MapCompletion = std::function<void(std::map<std::string, AutomationStatus>)>;

  AutomationPermission() = delete;

  /// The cached answer; nothing when there is none. Never asks the system.
  static std::optional<AutomationStatus> cachedStatus(const std::string& bundle);

  /// Makes sure that an answer is cached, without a prompt, then calls `completion`, which may be
  /// empty. Callers that come while a query is under way share its result.
  static void refreshStatus(const std::string& bundle, Completion completion);

  /// Refreshes several identifiers and calls `completion` once with all of them.
  static void refreshStatuses(const std::vector<std::string>& bundles, MapCompletion completion);

  /// The cached answer, or that of a query waited for at most `timeout`; nothing when it takes
  /// longer. Must not be called on the main thread: that ends the process.
  static std::optional<AutomationStatus> blockingStatus(const std::string& bundle,
                                                        Duration timeout = std::chrono::seconds(3));

  /// Asks the system, with its dialog if the answer is open, and caches the result.
  static void request(const std::string& bundle, Completion completion);

  /// Drops one cached answer. A query under way still caches its own.
  static void invalidate(const std::string& bundle);

  /// Drops all cached answers.
  static void invalidateAll();

  /// Opens the Automation pane of the privacy settings.
  static void openSettings();
};

}  // namespace talmo
