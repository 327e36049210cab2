#pragma once

#include <string>

#include "platform/ProcessIdentifier.h"
#include "platform/Workspace.h"
#include "support/Time.h"

namespace talmo::test {

/// The surroundings of a `Workspace` under test. At first nothing is installed, runs or is in
/// front, and nothing was ever used.
struct WorkspaceWorld {
  virtual ~WorkspaceWorld() = default;

  virtual Workspace& workspace() = 0;

  /// Installs an application under the name that the person is to see.
  virtual void install(const std::string& bundleID, const std::string& name) = 0;

  virtual void uninstall(const std::string& bundleID) = 0;

  /// Starts an instance, not through the workspace, whether it is installed or not. It was started
  /// later than every other one.
  virtual ProcessIdentifier launch(const std::string& bundleID) = 0;

  virtual void quit(ProcessIdentifier process) = 0;

  /// Puts an application that runs in front of all others, or nothing for an empty identifier.
  virtual void bringToFront(const std::string& bundleID) = 0;

  /// Has the person use an installed application, at a time in whole seconds.
  virtual void use(const std::string& bundleID, Date when) = 0;
};

}  // namespace talmo::test
