#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/Workspace.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The workspace of the simulated machine. An application that is opened runs at once. Any thread.
class SimulatedWorkspace : public Workspace {
 public:
  SimulatedWorkspace(SimulatedApplications& applications, Dispatch& dispatch)
      : applications_(applications), dispatch_(dispatch) {}

  std::optional<std::string> urlForApplication(const std::string& bundleID) const override;
  std::vector<RunningApplication> runningApplications(const std::string& bundleID) const override;
  std::optional<RunningApplication> runningApplication(ProcessIdentifier process) const override;
  std::optional<std::string> frontmostApplication() const override;
  void openApplication(const std::string& url) override;
  void openNewInstance(
      const std::string& url,
      std::function<void(const std::optional<std::string>& error)> completion) override;
  void openURL(const std::string& url) override;
  std::optional<Date> lastUsedDate(const std::string& url) const override;
  std::optional<Image> icon(const std::string& url, int pixels) const override;
  std::vector<LocalPlayer> localPlayers() const override;

  /// What this system's backend contributes; none at first. Before the registry is first asked.
  void setLocalPlayers(std::vector<LocalPlayer> players);

  /// How long looking up a date of last use takes.
  void setLastUseDuration(Duration duration);
  /// For every such query so far, in order, whether it was on the main thread.
  std::vector<bool> lastUseQueries() const;

  /// Why no new instance can be opened from now on; nothing, as at first, when they can.
  void setNewInstanceError(std::optional<std::string> error);

  /// The URLs of all applications that were to be opened, in order.
  std::vector<std::string> openedApplications() const;
  std::vector<std::string> newInstances() const;
  std::vector<std::string> openedURLs() const;
  /// The URLs of all applications whose icon was asked for, in order.
  std::vector<std::string> iconsAskedFor() const;

 private:
  SimulatedApplications& applications_;
  Dispatch& dispatch_;
  mutable Mutex mutex_;
  std::vector<LocalPlayer> localPlayers_ TALMO_GUARDED_BY(mutex_);
  Duration lastUseDuration_ TALMO_GUARDED_BY(mutex_) = Duration::zero();
  mutable std::vector<bool> lastUseQueries_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::string> openedApplications_ TALMO_GUARDED_BY(mutex_);
  mutable std::vector<std::string> iconsAskedFor_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::string> newInstances_ TALMO_GUARDED_BY(mutex_);
  std::optional<std::string> newInstanceError_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::string> openedURLs_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
