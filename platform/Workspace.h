#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/LocalPlayer.h"
#include "platform/RunningApplication.h"
#include "support/Time.h"

namespace talmo {

/// The applications that are installed and that run, by bundle identifier, and opening things.
///
/// Called by the registries, the coordinator and the permissions, on any thread. Every answer is of
/// the moment; nothing is cached. What the system does not know is absent, and an opening that
/// fails is logged by the backend and otherwise silent.
class Workspace {
 public:
  // Posted to the workspace's notification centre.

  /// Another application came to the front (`NSWorkspaceDidActivateApplicationNotification`).
  static constexpr auto didActivateApplication = "NSWorkspaceDidActivateApplicationNotification";
  /// Another desktop is shown (`NSWorkspaceActiveSpaceDidChangeNotification`).
  static constexpr auto activeSpaceDidChange = "NSWorkspaceActiveSpaceDidChangeNotification";

  virtual ~Workspace() = default;

  /// Where the application is installed, as a URL that `openApplication` takes; nothing when it is
  /// not.
  virtual std::optional<std::string> urlForApplication(const std::string& bundleID) const = 0;

  /// The running instances, oldest first; empty when there is none.
  virtual std::vector<RunningApplication> runningApplications(
      const std::string& bundleID) const = 0;

  /// The application that the process is an instance of; nothing when it is none.
  virtual std::optional<RunningApplication> runningApplication(ProcessIdentifier process) const = 0;

  /// The bundle identifier of the application in front, if it has one.
  virtual std::optional<std::string> frontmostApplication() const = 0;

  /// Starts an application, or brings it forward when it runs. Returns without waiting for it.
  virtual void openApplication(const std::string& url) = 0;

  /// Starts a further instance of an application, whether it runs or not. `completion` is called
  /// once, on a thread of the system, with what went wrong in words, or nothing when it has
  /// started.
  virtual void openNewInstance(
      const std::string& url,
      std::function<void(const std::optional<std::string>& error)> completion) = 0;

  /// Opens a URL with the default handler of its scheme. Returns without waiting for it.
  virtual void openURL(const std::string& url) = 0;

  /// When the person last used the application at `url`; nothing when the system keeps no record.
  virtual std::optional<Date> lastUsedDate(const std::string& url) const = 0;

  /// The icon of the application at `url`, about `pixels` wide and high; nothing when it has none.
  /// Main thread only.
  virtual std::optional<Image> icon(const std::string& url, int pixels) const = 0;

  /// The scriptable players of this system that exist on no other; constant for the process.
  virtual std::vector<LocalPlayer> localPlayers() const = 0;
};

}  // namespace talmo
