#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/WorkspaceWorld.h"

namespace talmo::test {

/// What every `Workspace` answers; nothing is opened. Instantiated once per backend, with what
/// makes a fresh world.
class WorkspaceContract
    : public testing::TestWithParam<std::function<std::unique_ptr<WorkspaceWorld>()>> {
 protected:
  // Players that hardly run on the machine beside the test: a real backend sees them, too.
  static constexpr const char* plexamp = "tv.plex.plexamp";
  static constexpr const char* deezer = "com.deezer.deezer-desktop";
  static constexpr const char* unknown = "com.example.nobody";

  WorkspaceWorld& world() { return *world_; }
  Workspace& workspace() { return world_->workspace(); }

  std::vector<ProcessIdentifier> processes(const std::string& bundleID);

  /// When an installed application was last used.
  std::optional<Date> lastUsed(const std::string& bundleID);

 private:
  const std::unique_ptr<WorkspaceWorld> world_ = GetParam()();
};

}  // namespace talmo::test
