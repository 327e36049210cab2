#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/TalmoProcess.h"

namespace talmo::test {

/// A private desktop with a window in front, and the built Talmo.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest();

  /// Starts Talmo with `selection` as its stored target.
  TalmoProcess& startTalmo(const std::optional<std::string>& selection);

  /// Starts Talmo with the settings as they are; one that runs is ended before.
  TalmoProcess& startTalmo();

  /// Types "z", which nobody but the window in front takes, waits until that window has it, and
  /// returns what the window got since it was last asked: "+z -z" for that alone.
  std::string windowAfterTyping();

  /// Makes a player known to the desktop under `name`.desktop, started by `command`.
  void install(const std::string& name, const std::vector<std::string>& command) const;

  PrivateDesktop desktop_;
  FocusWindow window_;
  KeyPresser keys_;
  std::unique_ptr<TalmoProcess> talmo_;
};

}  // namespace talmo::test
