#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Workspace.h"

namespace talmo {

/// The workspace of the Mac: Launch Services, the running applications and Spotlight, by AppKit and
/// Foundation. What runs is as the main run loop last saw it.
class MacWorkspace : public Workspace {
 public:
  std::optional<std::string> urlForApplication(const std::string& bundleID) const override;
  std::vector<RunningApplication> runningApplications(const std::string& bundleID) const override;
  std::optional<RunningApplication> runningApplication(ProcessIdentifier process) const override;
  std::optional<std::string> frontmostApplication() const override;
  void openApplication(const std::string& url) override;
  void openNewInstance(
      const std::string& url,
      std::function<void(const std::optional<std::string>& error)> completion) override;
  void openURL(const std::string& url) override;

  /// From Spotlight, which knows nothing of a volume that it does not index.
  std::optional<Date> lastUsedDate(const std::string& url) const override;

  std::optional<Image> icon(const std::string& url, int pixels) const override;

  /// None: the registry's own players are the Mac's.
  std::vector<LocalPlayer> localPlayers() const override { return {}; }
};

}  // namespace talmo
