#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/linux/applications/OpenedApplications.h"
#include "platform/Workspace.h"

namespace talmo {

/// The workspace of a Linux desktop: desktop entries, and the session bus, windows and processes by
/// which the instances of an application are found. Bundle identifiers are those of
/// `LinuxApplications`. Without a session bus or a display the rest is still answered.
class LinuxWorkspace : public Workspace {
 public:
  /// Applications and URLs are opened on `dispatch`'s global queue; it outlives this object.
  explicit LinuxWorkspace(Dispatch& dispatch) : dispatch_(dispatch) {}

  /// A file URL of the desktop entry.
  std::optional<std::string> urlForApplication(const std::string& bundleID) const override;

  /// From the first source that knows any: the owners of its player names on the session bus, the
  /// processes of its windows, the processes that run its programs.
  std::vector<RunningApplication> runningApplications(const std::string& bundleID) const override;

  /// By the program that the process runs, or its name as a player on the session bus.
  std::optional<RunningApplication> runningApplication(ProcessIdentifier process) const override;

  /// For an application that is not in the table, the id of its desktop entry.
  std::optional<std::string> frontmostApplication() const override;

  /// Remembers when, for `lastUsedDate`.
  void openApplication(const std::string& url) override;
  /// Of a desktop entry, or of the program at a file URL.
  void openNewInstance(
      const std::string& url,
      std::function<void(const std::optional<std::string>& error)> completion) override;
  void openURL(const std::string& url) override;

  /// The latest of the application's use of a file, its time in front, as far as the desktop keeps
  /// such records, and its being opened by this program.
  std::optional<Date> lastUsedDate(const std::string& url) const override;

  /// From the desktop's icon theme. Nothing without the toolkit.
  std::optional<Image> icon(const std::string& url, int pixels) const override;

  std::vector<LocalPlayer> localPlayers() const override;

 private:
  Dispatch& dispatch_;
  // Shared with what is being opened.
  const std::shared_ptr<OpenedApplications> opened_ =
      std::make_shared<OpenedApplications>(OpenedApplications::standardFile());
};

}  // namespace talmo
