#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/PixelArea.h"

namespace talmo::test {

/// What assistive technology is told of one thing on the screen.
struct AccessibleThing {
  std::string role;
  std::string name;
  std::string description;
  /// Of those that are looked at here: checked, focusable, focused, selected.
  std::set<std::string> states;
  /// The names of what contains it, from the application's on, without the empty ones.
  std::vector<std::string> path;
};

/// Reads the screen as assistive technology does, over the session bus of the environment. One
/// thread; the first object of a process finds the bus for all of them.
class AccessibleTree {
 public:
  AccessibleTree();

  /// Everything that is shown of the application whose process that is; empty until it is there.
  std::vector<AccessibleThing> things(int process);

  /// Where on the screen the thing of that role and name is; nothing when it is not there.
  std::optional<PixelArea> place(int process, const std::string& role, const std::string& name);

  /// Does the first action of the thing of that role and name; false when it is not there.
  bool press(int process, const std::string& role, const std::string& name);
};

}  // namespace talmo::test
